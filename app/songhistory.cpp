#include "app/songhistory.h"

#include "app/actiongate.h"
#include "app/songlist.h"
#include "library/historytexts.h"
#include "windows/busystate.h"
#include "windows/confirmation.h"
#include "windows/historydialog.h"
#include "windows/takingback.h"
#include "windows/usersongsreltablemodel.h"

#include "ui_mainwindow.h"

#include <QMainWindow>
#include <QMessageBox>

namespace
{

constexpr int droppedMilliseconds = 15000;

} // namespace

SongHistory::SongHistory(QMainWindow *window, const Ui::MainWindow &form, SongList &songs,
                         BusyState &busy, ActionGate &gate)
    : QObject(window)
    , m_window(window)
    , m_songs(songs)
    , m_busy(busy)
    , m_history(&confirmation::askToGoOnWithoutHistory, [window](int jobs) {
        window->statusBar()->showMessage(historytexts::dropped(jobs), droppedMilliseconds);
    })
{
    connect(form.actionTakeBack, &QAction::triggered, this, &SongHistory::takeLastBack);
    connect(form.actionHistory, &QAction::triggered, this, &SongHistory::show);
    for (QAction *const action : {form.actionTakeBack, form.actionHistory}) {
        action->setEnabled(true);
        gate.add(action);
        gate.setWanted(action, true);
    }
}

void SongHistory::takeLastBack()
{
    const BusyGuard busy(m_busy);
    const QString problem = historytexts::problem(m_history.open());
    const std::optional<HistoryJob> job = UserHistory::last(m_history.store().jobs());
    if (!job) {
        QMessageBox::information(m_window, tr("Cronologia"),
                                 problem.isEmpty() ? tr("Non c'è niente da annullare.") : problem);
        return;
    }
    const QString question = tr("%1.\n\nAnnullare questo lavoro? Le song tornano come erano prima.")
                                 .arg(TakingBack::described(*job));
    if (QMessageBox::question(m_window, tr("Cronologia"), question,
                              QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::Yes) != QMessageBox::Yes)
        return;
    showTakenBack(TakingBack::run(m_history, {*job, m_history.store().songs(job->number), false},
                                  listedFiles(), m_window));
}

void SongHistory::show()
{
    const BusyGuard busy(m_busy);
    HistoryDialog dialog(m_history, listedFiles(), m_window);
    connect(&dialog, &HistoryDialog::takenBack, this, &SongHistory::showTakenBack);
    dialog.exec();
}

void SongHistory::showTakenBack(const HistoryUndo::Report &report)
{
    if (!report.renamed.isEmpty())
        emit renamed(report.renamed); // the rows have the names before they are read anew
    m_songs.showFiles(report.done);
}

QStringList SongHistory::listedFiles() const
{
    QStringList files;
    for (int row = 0; row < m_songs.model().goodRowCount(); ++row)
        files.append(m_songs.model().fileName(row));
    return files;
}
