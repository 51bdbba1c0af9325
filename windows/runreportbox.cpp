#include "windows/runreportbox.h"

#include "windows/filelistdialog.h"

#include <QPushButton>

RunReportBox::RunReportBox(const RunReport &report, QWidget *parent)
    : QMessageBox(Warning, tr("Aggiornamento file"), report.summary(), Ok, parent)
    , m_details(addButton(tr("&Dettagli..."), ActionRole))
{
    m_details->setObjectName(QStringLiteral("detailsPushButton"));
    setDefaultButton(Ok);
    setEscapeButton(Ok);
    if (report.count(SongFinding::Kind::NotSaved) > 0)
        setInformativeText(tr("Nella lista hanno un segnale di avviso. Tenendovi sopra il mouse si "
                              "legge il motivo."));
}

void RunReportBox::tell(const RunReport &report, QWidget *parent)
{
    if (report.isEmpty())
        return;
    RunReportBox box(report, parent);
    box.exec();
    if (box.clickedButton() == box.m_details)
        details(report, parent)->exec();
}

std::unique_ptr<FileListDialog> RunReportBox::details(const RunReport &report, QWidget *parent)
{
    QList<FileListDialog::Line> lines;
    for (const SongFinding &finding : report.findings())
        lines.append({finding.path, RunReport::text(finding)});
    return std::make_unique<FileListDialog>(tr("Dettagli"), tr("Queste &song non sono a posto:"),
                                            lines, parent);
}
