#include "windows/takingback.h"

#include "devindex/jobundo.h"
#include "library/historytexts.h"
#include "windows/filelistdialog.h"
#include "windows/shownprogress.h"

#include <QLocale>
#include <QPushButton>

namespace
{

QString summary(const HistoryUndo::Report &report)
{
    const auto count = [](qsizetype songs) { return static_cast<int>(songs); };
    QStringList lines;
    if (!report.done.isEmpty())
        lines << TakingBack::tr("%n song sono di nuovo come prima.", nullptr,
                                count(report.done.size()));
    if (report.alreadyOld > 0)
        lines << TakingBack::tr("%n song erano già come prima.", nullptr, report.alreadyOld);
    if (!report.failed.isEmpty())
        lines << TakingBack::tr("%n song sono rimaste come sono.", nullptr,
                                count(report.failed.size()));
    if (report.stopped)
        lines << TakingBack::tr("Interrotto: le altre song non sono state toccate.");
    if (lines.isEmpty())
        lines << TakingBack::tr("Non c'era niente da annullare.");
    return lines.join(QLatin1Char('\n'));
}

} // namespace

TakingBack::TakingBack(const HistoryUndo::Report &report, QWidget *parent)
    : QMessageBox(report.failed.isEmpty() ? Information : Warning, tr("Cronologia"),
                  summary(report), Ok, parent)
{
    setDefaultButton(Ok);
    setEscapeButton(Ok);
    if (!report.failed.isEmpty())
        addButton(tr("&Dettagli..."), ActionRole)
            ->setObjectName(QStringLiteral("detailsPushButton"));
}

HistoryUndo::Report TakingBack::run(UserHistory &history, const Job &job,
                                    const QStringList &knownSongs, QWidget *parent)
{
    HistoryUndo::Report report;
    {
        Progress *shown = nullptr;
        JobUndo undo(history.store(), [&shown, parent](const QString &title, const QString &label,
                                                       int maximum) {
            return std::make_unique<ShownProgress>(shown, title, label, maximum, parent);
        });
        undo.setKnownSongs(knownSongs);
        const auto recorder = history.recorder(HistoryJob::Kind::TakeBack, job.job.number);
        ShownProgress progress(shown, tr("Cronologia"), tr("Le song tornano come prima..."),
                               static_cast<int>(job.songs.size()), parent);
        report = undo.takeBack(job.job, job.songs, job.alsoChanged, *recorder, progress);
    }
    TakingBack box(report, parent);
    box.exec();
    if (box.clickedButton() != box.button(Ok) && !report.failed.isEmpty() &&
        box.clickedButton() != nullptr)
        details(report, parent)->exec();
    return report;
}

std::unique_ptr<FileListDialog> TakingBack::details(const HistoryUndo::Report &report,
                                                    QWidget *parent)
{
    QList<FileListDialog::Line> lines;
    for (const HistoryUndo::Failure &failure : report.failed)
        lines.append({failure.path, failure.reason});
    return std::make_unique<FileListDialog>(
        tr("Dettagli"), tr("Queste &song sono rimaste come sono:"), lines, parent);
}

QString TakingBack::described(const HistoryJob &job)
{
    return tr("%1 del %2, %n song", nullptr, job.songs)
        .arg(historytexts::kindName(job.kind), QLocale().toString(job.time, QLocale::ShortFormat));
}
