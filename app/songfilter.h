// Narrows the list to the songs that hold the text of a field and that are in some states.
#pragma once

#include <QObject>
#include <QSet>
#include <QTimer>

class BusyState;
class QLineEdit;
class QTableView;
class UserSongsRelTableModel;

/**
 * Only hides rows in the view: the model and its row numbers do not change. A row that is hidden is
 * no longer chosen. Rows that come or change are looked at as soon as no workflow runs any more:
 * going through all rows after each of thousands of songs would take longer than the songs do.
 */
class SongFilter : public QObject
{
    Q_OBJECT

public:
    /** The view shows the model already; it owns the object. */
    SongFilter(QLineEdit *field, QTableView *view, const UserSongsRelTableModel &model,
               const BusyState &busy);

    /** Shows the rows that hold the field's text and are in a chosen state. */
    void apply();

    /** Only songs in these Database::statusEnum are to be shown; in any state, where there are
     * none. */
    void setStates(const QSet<int> &states);

    /** Empties the field; the states stay. */
    void clearText();

    /** Puts the cursor into the field and selects what is in it. */
    void focusField();

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    /** What is shown may have changed. */
    void applied();

private:
    void applyLater();
    void applyUnlessBusy();
    void leaveHiddenRow();
    bool isWanted(int row, const QString &text) const;
    bool fieldKey(int key);
    int nearestShownRow(int row) const;
    void focusList();

    QLineEdit *const m_field;
    QTableView *const m_view;
    const UserSongsRelTableModel &m_model;
    const BusyState &m_busy;
    QSet<int> m_states; ///< none: songs in all states
    QTimer m_later;
    bool m_stale = false;     ///< rows have changed since they were looked at
    bool m_hidesRows = false; ///< some row may be hidden
};
