#include "app/listoutput.h"

#include "app/actiongate.h"
#include "app/columnchoice.h"
#include "app/songlist.h"
#include "library/userfile.h"
#include "windows/busystate.h"
#include "windows/tablepages.h"
#include "windows/usersongsreltablemodel.h"

#include "ui_mainwindow.h"

#include <QBuffer>
#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStatusBar>
#include <QTableView>

ListOutput::ListOutput(QWidget *window, const Ui::MainWindow &form, const SongList &songs,
                       BusyState &busy, ActionGate &gate)
    : QObject(window)
    , m_window(window)
    , m_statusBar(form.statusBar)
    , m_songs(songs)
    , m_busy(busy)
    , m_gate(gate)
    , m_actions{form.actionCopyRow, form.actionCopyList, form.actionPrint}
{
    for (QAction *action : m_actions)
        m_gate.add(action);
    connect(form.actionCopyRow, &QAction::triggered, this, [this] {
        const bool isChosen = m_songs.view()->selectionModel()->hasSelection();
        copy(isChosen ? Rows::Chosen : Rows::Shown);
    });
    connect(form.actionCopyList, &QAction::triggered, this, [this] { copy(Rows::Shown); });
    connect(form.actionPrint, &QAction::triggered, this, &ListOutput::print);
    const QAbstractItemModel *const model = &m_songs.model();
    connect(model, &QAbstractItemModel::modelReset, this, &ListOutput::enableActions);
    connect(model, &QAbstractItemModel::rowsInserted, this, &ListOutput::enableActions);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &ListOutput::enableActions);
    enableActions();
}

void ListOutput::enableActions()
{
    for (QAction *action : m_actions)
        m_gate.setWanted(action, m_songs.model().rowCount() > 0);
}

TextTable ListOutput::table(Rows which) const
{
    const QTableView *const view = m_songs.view();
    const QAbstractItemModel &model = m_songs.model();
    const QList<int> columns = ColumnChoice::shown(view);
    TextTable table;
    for (const int column : columns)
        table.headings.append(model.headerData(column, Qt::Horizontal).toString());
    for (int row = 0; row < model.rowCount(); ++row) {
        if (view->isRowHidden(row) ||
            (which == Rows::Chosen && !view->selectionModel()->isRowSelected(row, QModelIndex())))
            continue;
        QStringList texts;
        for (const int column : columns)
            texts.append(model.index(row, column).data().toString());
        table.rows.append(texts);
    }
    return table;
}

void ListOutput::copy(Rows which) const
{
    const TextTable copied = table(which);
    QGuiApplication::clipboard()->setText(copied.tabSeparated());
    say(tr("Song copiate negli appunti: %1").arg(copied.rows.size()));
}

void ListOutput::print()
{
    const BusyGuard busy(m_busy);
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape); // a row is long
    printer.setDocName(tr("Lista delle song"));
    // Nothing but a file is left then, and the dialog suggests no name of its own.
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        printer.setOutputFileName(
            QDir(QDir::homePath()).filePath(printer.docName() + QStringLiteral(".pdf")));
    QPrintDialog dialog(&printer, m_window);
    dialog.setWindowTitle(tr("Stampa lista"));
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString problem = output(printer);
    if (problem.isEmpty()) {
        const bool isFile = printer.outputFormat() == QPrinter::PdfFormat;
        say(isFile ? tr("Lista salvata in %1")
                         .arg(QDir::toNativeSeparators(
                             QDir::current().absoluteFilePath(printer.outputFileName())))
                   : tr("La lista è alla stampante"));
    } else {
        QMessageBox box(QMessageBox::Critical, tr("Stampa lista"), problem, QMessageBox::Ok,
                        m_window);
        box.setTextFormat(Qt::PlainText); // the name of a file could look like markup
        box.exec();
    }
}

void ListOutput::say(const QString &text) const
{
    constexpr int saidMilliseconds = 8000;
    m_statusBar->showMessage(text, saidMilliseconds);
}

/** What went wrong, for the user; empty when all pages were printed. */
QString ListOutput::output(QPrinter &printer) const
{
    const TextTable shown = table(Rows::Shown);
    const TablePages pages(shown,
                           tr("Lista delle song: %n song", "", static_cast<int>(shown.rows.size())),
                           m_songs.view()->font());
    if (printer.outputFormat() != QPrinter::PdfFormat)
        return pages.paint(
                   printer, [&printer] { return printer.newPage(); }, printer.fromPage(),
                   printer.toPage())
                   ? QString()
                   : tr("La lista non può essere stampata");
    // Into the memory first: a full disk must neither go unnoticed nor leave half a file.
    QBuffer document;
    document.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&document);
        writer.setPageLayout(printer.pageLayout());
        writer.setResolution(printer.resolution());
        writer.setTitle(printer.docName());
        if (!pages.paint(
                writer, [&writer] { return writer.newPage(); }, printer.fromPage(),
                printer.toPage()))
            return tr("La lista non può essere stampata");
    }
    const QString path = QDir::current().absoluteFilePath(printer.outputFileName());
    const QString problem = UserFile::write(path, document.data());
    return problem.isEmpty() ? QString()
                             : QDir::toNativeSeparators(path) + QLatin1Char('\n') + problem;
}
