// The widths of the list's columns and the order of its rows, as the user left them.
#pragma once

#include <QMap>
#include <QObject>
#include <QSettings>
#include <QString>
#include <QTimer>

class QTableView;
class QWidget;
class SongTable;

/**
 * Columns are as wide as their contents, or as wide as the user dragged them; a double click on the
 * edge of a heading gives a column back to its contents. Width that is left in the window goes to
 * the columns of texts, and missing width is taken from the widest of them. The rows stand in the
 * order of the import until the user clicks on a heading; a third click brings that order back.
 *
 * Widths and order are kept in the settings, by the names of the columns; what is stored there and
 * makes no sense is ignored. A column that the user hides keeps both.
 */
class ColumnLayout : public QObject
{
    Q_OBJECT

public:
    /** The view shows the model already; it owns the object. Loads what is stored. */
    ColumnLayout(QTableView *view, const SongTable &model, QSettings &settings);

    /** To be called when the columns were fitted to their contents: applies all the rest. */
    void columnsWereFitted();

    /** Orders the rows as the user wanted them last. */
    void sortAsChosen();

    /** Orders the rows and keeps that as the user's choice; column -1 is the order of the import.
     */
    void chooseOrder(int column, Qt::SortOrder order);

    /** Gives all columns back to their contents; columnsWereFitted() has to follow. */
    void releaseWidths() { m_ownWidths.clear(); }

    /** Stores widths and order. */
    void save();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void load();
    void keepWidth(int column, int width);
    void releaseWidth(int column);
    void spread();
    void widen(int left);
    void narrow(int missing);
    bool isFree(const QString &field) const;
    int wantedWidth(int column) const;
    int shownColumn(const QString &field) const;

    QTableView *const m_view;
    QWidget *const m_viewport; ///< its events come while the view is destroyed, too
    const SongTable &m_model;
    QSettings &m_settings;
    QMap<QString, int> m_ownWidths; ///< of the columns that the user dragged
    QMap<int, int> m_fittedWidths;
    QString m_sortField; ///< empty: the order of the import
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    QTimer m_later;
    bool m_dragging = false; ///< the mouse is down on the headings
};
