// Which columns the list shows and in which order they stand, as the user wants it.
#pragma once

#include <QObject>
#include <QStringList>

class SongTable;

QT_BEGIN_NAMESPACE
class QMenu;
class QSettings;
class QTableView;
QT_END_NAMESPACE

/**
 * A menu, which the headings open too, shows and hides the columns; the headings can be dragged to
 * other places. Both are kept in the settings, by the names of the columns; what is stored there
 * and makes no sense is ignored. The column of the formats, which carries the marks of the songs,
 * cannot be hidden.
 */
class ColumnChoice : public QObject
{
    Q_OBJECT

public:
    /**
     * The view, which owns the object, shows the model already and hides what is not offered. Loads
     * what is stored.
     */
    ColumnChoice(QTableView *view, const SongTable &model, QSettings &settings, QMenu *menu);

    /** True for a column that the user may see: not for numbers, paths and status. */
    static bool isOffered(int column);

    /** The leftmost of the view's columns that is shown; -1 when none is. */
    static int firstShown(const QTableView *view);

    /** The view's columns that are shown, from left to right. */
    static QList<int> shown(const QTableView *view);

    /** Stores what is shown and the order. */
    void save();

signals:
    /** A column has been shown or hidden: their widths have to be worked out anew. */
    void changed();

    /** All is to be as at first; the widths are for others to give back. */
    void restored();

private:
    void load();
    void fillMenu();
    void showColumn(int column, bool show);
    void moveCurrentCell();
    void restore();
    QStringList names(const QList<int> &columns) const;
    QStringList namesInOrder() const;

    QTableView *const m_view;
    const SongTable &m_model;
    QSettings &m_settings;
    QMenu *const m_menu;
    QStringList m_firstShown; ///< what is shown at a first start
};
