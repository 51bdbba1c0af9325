// The window of the history: the jobs, and the songs of one with their old and new values.
#pragma once

#include "library/historyundo.h"
#include "library/userhistory.h"

#include <QDialog>
#include <QHash>
#include <QList>
#include <QScopedPointer>
#include <QStringList>
#include <QTimer>

QT_BEGIN_NAMESPACE
class QTreeWidgetItem;
namespace Ui
{
class HistoryDialog;
}
QT_END_NAMESPACE

/**
 * Takes whole jobs or chosen songs back. How the songs stand now is found out little by little
 * while the window is open, since each file has to be read for it.
 */
class HistoryDialog : public QDialog
{
    Q_OBJECT

public:
    /** Songs that were moved are looked for among the known ones. The history must outlive it. */
    HistoryDialog(UserHistory &history, const QStringList &knownSongs, QWidget *parent = nullptr);
    ~HistoryDialog() override;

signals:
    /** Files are as they were before a job. */
    void takenBack(const HistoryUndo::Report &report);

private:
    void showJobs();
    void showSongs();
    void showFields(QTreeWidgetItem *item);
    void checkSongs();
    void enableButtons();
    void takeBack(const QList<HistorySong> &songs);
    QList<HistorySong> chosenSongs() const;
    const HistoryJob *currentJob() const;
    int songsTakenBack(const HistoryJob &job) const;
    QString stateOf(const HistoryJob &job) const;

    const QScopedPointer<Ui::HistoryDialog> ui;
    UserHistory &m_history;
    const QStringList m_knownSongs;
    HistoryUndo m_undo;
    QList<HistoryJob> m_jobs;
    QList<HistorySong> m_songs; ///< of the chosen job, in the order of the rows
    int m_checked = 0;          ///< so many of them are known to stand as their rows say
    QTimer m_check;
};
