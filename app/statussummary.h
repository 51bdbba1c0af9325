// The numbers in the status bar: what is in the list, and what the last import could not read.
#pragma once

#include "library/unreadablefile.h"

#include <QList>
#include <QObject>
#include <QTimer>

class ActionGate;
class QLabel;
class QPushButton;
class QStatusBar;
class QTableView;
class StateButtons;
class UserSongsRelTableModel;

/**
 * Counts the songs by status a moment after they changed, and not more than a few times a second:
 * adding thousands of songs must not become slower. Each number is a button with the sign and the
 * colour that its rows have, and narrows the list to them. A further button tells how many files
 * were not read and opens their list, another one how many songs have texts that the player cannot
 * show.
 */
class StatusSummary : public QObject
{
    Q_OBJECT

public:
    /** The view shows the model already; the status bar owns the object. */
    StatusSummary(QStatusBar *bar, const QTableView *view, const UserSongsRelTableModel &model,
                  ActionGate &gate);

    /** Keeps the files for the list; the button hides when there are none. */
    void setUnreadableFiles(const QList<UnreadableFile> &files);
    const QList<UnreadableFile> &unreadableFiles() const { return m_unreadable; }

    /** Counts anew and writes the texts, in the present language. */
    void refresh();

    /** The buttons that narrow the list. */
    StateButtons &states() const { return *m_states; }

signals:
    /** The user wants to see which files could not be read. */
    void listRequested();

    /** The user wants to see the songs whose texts the player cannot show. */
    void tagsRequested();

private:
    void refreshLater();

    const QTableView *const m_view;
    const UserSongsRelTableModel &m_model;
    QLabel *const m_label;
    StateButtons *const m_states;
    QPushButton *const m_unreadableButton;
    QPushButton *const m_tagsButton;
    QList<UnreadableFile> m_unreadable;
    QTimer m_later;
};
