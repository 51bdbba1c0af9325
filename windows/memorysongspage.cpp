#include "windows/memorysongspage.h"

#include "devindex/sizetext.h"
#include "windows/memorysongsmodel.h"
#include "windows/paintingpaused.h"
#include "windows/playerbar.h"

#include <QHash>
#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>

#include <algorithm>

namespace
{

/** Widths in characters: measuring 65,535 rows would take longer than reading them. */
constexpr int widths[] = {26, 20, 16, 8, 6, 8, 6, 13, 34, 30};

} // namespace

MemorySongsPage::MemorySongsPage(const Widgets &widgets, QObject *parent)
    : QObject(parent)
    , m_widgets(widgets)
    , m_model(new MemorySongsModel(this))
{
    setUpTable();
    connectButtons();
    connect(m_widgets.filter, &QLineEdit::textChanged, this, &MemorySongsPage::applyFilter);
    m_widgets.filter->installEventFilter(this);
    m_widgets.table->installEventFilter(this);
    enableButtons();
    showCount();
}

void MemorySongsPage::setUpTable()
{
    QTableView *const table = m_widgets.table;
    QHeaderView *const rows = table->verticalHeader();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(table->fontMetrics().height() + 6);
    rows->hide();
    table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    table->horizontalHeader()->setSortIndicatorClearable(true);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setHighlightSections(false);
    table->setModel(m_model);
    const int character = table->fontMetrics().averageCharWidth();
    for (int column = 0; column < MemorySongsModel::columns; ++column)
        table->setColumnWidth(column, widths[column] * character);
    makeRoomForTexts();
    table->viewport()->installEventFilter(this);
    table->horizontalHeader()->setSectionsClickable(true);
    table->horizontalHeader()->setSortIndicatorShown(true);
    connect(table->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
            [this](int column, Qt::SortOrder order) {
                const QList<qsizetype> songs = chosen();
                const qsizetype current = currentSong();
                const PaintingPaused paused(m_widgets.table);
                m_model->sort(column, order);
                choose(songs, current);
            });
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        enableButtons();
        showCount();
    });
    connect(table->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MemorySongsPage::offerToPlay);
    m_widgets.player->playOnSpaceIn(table);
    connect(table, &QTableView::doubleClicked, this, [this] { m_widgets.edit->click(); });
    connect(table, &QTableView::customContextMenuRequested, this, &MemorySongsPage::showMenu);
}

/** The titles of the columns are longer in some languages than what stands below. */
void MemorySongsPage::makeRoomForTexts()
{
    const QFontMetrics metrics = m_widgets.table->fontMetrics();
    constexpr qint64 widestSize = 1000;
    m_widgets.table->setColumnWidth(
        MemorySongsModel::Size,
        std::max(m_widgets.table->columnWidth(MemorySongsModel::Size),
                 metrics.horizontalAdvance(sizeText(widestSize)) + 2 * metrics.averageCharWidth()));
    const QHeaderView *const header = m_widgets.table->horizontalHeader();
    for (int column = 0; column < MemorySongsModel::columns; ++column)
        m_widgets.table->setColumnWidth(
            column, std::max(header->sectionSize(column), header->sectionSizeHint(column)));
}

/** The paths take the room that the other columns leave. */
void MemorySongsPage::stretchPaths()
{
    QTableView *const table = m_widgets.table;
    constexpr int paths = MemorySongsModel::columns - 1;
    const int before = table->horizontalHeader()->sectionPosition(paths);
    table->setColumnWidth(paths, std::max(widths[paths] * table->fontMetrics().averageCharWidth(),
                                          table->viewport()->width() - before));
}

void MemorySongsPage::connectButtons()
{
    connect(m_widgets.edit, &QPushButton::clicked, this, [this] {
        QList<qsizetype> songs = chosen();
        // The song that the user stands on is the one that the dialog shows.
        const qsizetype at = songs.indexOf(currentSong());
        if (at > 0)
            songs.move(at, 0);
        emit editRequested(songs);
    });
    connect(m_widgets.rename, &QPushButton::clicked, this,
            [this] { emit renameRequested(chosen().constFirst()); });
    connect(m_widgets.copy, &QPushButton::clicked, this, [this] { emit copyRequested(chosen()); });
    connect(m_widgets.show, &QPushButton::clicked, this,
            [this] { emit showRequested(chosen().constFirst()); });
    connect(m_widgets.remove, &QPushButton::clicked, this,
            [this] { emit removeRequested(chosen()); });
}

void MemorySongsPage::setContents(const SharedContents &contents)
{
    QHash<QString, bool> before; // by path: whether it was the current song
    if (m_contents && contents && m_contents->root() == contents->root()) {
        const qsizetype current = currentSong();
        for (const qsizetype song : chosen())
            before.insert(m_contents->songs().at(song).info.path, song == current);
    }
    const PaintingPaused paused(m_widgets.table);
    m_contents = contents;
    m_model->setContents(contents);
    QList<qsizetype> songs;
    qsizetype current = -1;
    for (qsizetype song = 0; !before.isEmpty() && song < contents->songs().size(); ++song) {
        const auto found = before.constFind(contents->songs().at(song).info.path);
        if (found == before.constEnd())
            continue;
        songs.append(song);
        if (*found)
            current = song;
    }
    choose(songs, current);
}

void MemorySongsPage::addDuplicates(const QList<memoryduplicates::Group> &groups)
{
    const QList<qsizetype> songs = chosen();
    const qsizetype current = currentSong();
    m_model->addDuplicates(groups);
    choose(songs, current);
}

void MemorySongsPage::setBusy(bool busy)
{
    m_isBusy = busy;
    enableButtons();
}

QList<qsizetype> MemorySongsPage::chosen() const
{
    QList<int> rows;
    const QItemSelection selection = m_widgets.table->selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.resize(std::unique(rows.begin(), rows.end()) - rows.begin());
    QList<qsizetype> songs;
    songs.reserve(rows.size());
    for (const int row : std::as_const(rows))
        songs.append(m_model->songAt(row));
    return songs;
}

qsizetype MemorySongsPage::currentSong() const
{
    const QModelIndex current = m_widgets.table->currentIndex();
    return current.isValid() ? m_model->songAt(current.row()) : -1;
}

/** Chooses those of the songs that are shown; the view has forgotten what was chosen before. */
void MemorySongsPage::choose(const QList<qsizetype> &songs, qsizetype current)
{
    QList<int> rows;
    for (const qsizetype song : songs) {
        const int row = m_model->rowOf(song);
        if (row >= 0)
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end());
    QItemSelection selection;
    for (qsizetype first = 0; first < rows.size();) {
        qsizetype last = first;
        while (last + 1 < rows.size() && rows.at(last + 1) == rows.at(last) + 1)
            ++last;
        selection.append(
            QItemSelectionRange(m_model->index(rows.at(first), 0),
                                m_model->index(rows.at(last), MemorySongsModel::columns - 1)));
        first = last + 1;
    }
    QItemSelectionModel *const model = m_widgets.table->selectionModel();
    if (current >= 0 && m_model->rowOf(current) >= 0) {
        const QModelIndex index = m_model->index(m_model->rowOf(current), 0);
        model->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        m_widgets.table->scrollTo(index);
    }
    if (!selection.isEmpty())
        model->select(selection, QItemSelectionModel::ClearAndSelect);
    enableButtons(); // a model that is reset clears the selection without a signal
    showCount();
}

void MemorySongsPage::applyFilter()
{
    const QList<qsizetype> songs = chosen();
    const qsizetype current = currentSong();
    const PaintingPaused paused(m_widgets.table);
    m_model->setFilter(m_widgets.filter->text());
    choose(songs, current);
}

/** The bar plays the song that the user stands on. */
void MemorySongsPage::offerToPlay()
{
    const qsizetype song = currentSong();
    m_widgets.player->setSong(song < 0 || !m_contents ? QString()
                                                      : m_contents->songs().at(song).info.fullPath);
}

void MemorySongsPage::enableButtons()
{
    offerToPlay();
    const QList<qsizetype> songs = chosen();
    const bool canAct = m_contents && !m_isBusy && !songs.isEmpty();
    const bool isOne = canAct && songs.size() == 1;
    const bool mayChange = canAct && m_contents->whyNotChanged().isEmpty();
    const QString why = m_contents ? m_contents->whyNotChanged() : QString();
    m_widgets.edit->setEnabled(mayChange);
    m_widgets.rename->setEnabled(mayChange && isOne);
    m_widgets.remove->setEnabled(mayChange);
    m_widgets.copy->setEnabled(canAct);
    m_widgets.show->setEnabled(isOne);
    for (QPushButton *const button : {m_widgets.edit, m_widgets.rename, m_widgets.remove})
        button->setToolTip(why);
}

void MemorySongsPage::showCount()
{
    const int all = m_model->songCount();
    const int shown = m_model->rowCount();
    const qsizetype selected = chosen().size();
    QString text = shown == all ? tr("%n song", "", all) : tr("%1 di %n song", "", all).arg(shown);
    if (selected > 0)
        text += QStringLiteral(", ") + tr("%n scelte", "", static_cast<int>(selected));
    m_widgets.count->setText(text);
}

void MemorySongsPage::showMenu(const QPoint &position)
{
    if (m_isBusy || chosen().isEmpty())
        return;
    QMenu menu;
    for (QPushButton *const button :
         {m_widgets.edit, m_widgets.rename, m_widgets.copy, m_widgets.show, m_widgets.remove}) {
        QAction *const action =
            menu.addAction(button->text(), button, [button] { button->click(); });
        action->setEnabled(button->isEnabled());
    }
    menu.exec(m_widgets.table->viewport()->mapToGlobal(position));
}

void MemorySongsPage::retranslate()
{
    const QList<qsizetype> songs = chosen();
    const qsizetype current = currentSong();
    m_model->retranslate();
    makeRoomForTexts();
    stretchPaths();
    choose(songs, current);
}

bool MemorySongsPage::eventFilter(QObject *watched, QEvent *event)
{
    // the kind of event first: a table on its way out has no viewport to compare with
    if (event->type() == QEvent::Resize && watched == m_widgets.table->viewport())
        stretchPaths();
    if (event->type() == QEvent::KeyPress) {
        const auto *const key = static_cast<const QKeyEvent *>(event);
        if (watched == m_widgets.filter && filterKey(key->key()))
            return true;
        if (watched == m_widgets.table && tableKey(key->key(), key->modifiers()))
            return true;
    }
    return QObject::eventFilter(watched, event);
}

bool MemorySongsPage::tableKey(int key, Qt::KeyboardModifiers modifiers)
{
    if ((modifiers & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    QPushButton *button = nullptr;
    if (key == Qt::Key_Delete)
        button = m_widgets.remove;
    else if (key == Qt::Key_F2)
        button = m_widgets.rename;
    else if (key == Qt::Key_Return || key == Qt::Key_Enter)
        button = m_widgets.edit;
    if (button != nullptr)
        button->click();
    return button != nullptr;
}

bool MemorySongsPage::filterKey(int key)
{
    const bool isEmpty = m_widgets.filter->text().isEmpty();
    if (key == Qt::Key_Escape && !isEmpty) {
        m_widgets.filter->clear();
        return true;
    }
    if (key != Qt::Key_Down && key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    if (m_model->rowCount() > 0 && chosen().isEmpty())
        m_widgets.table->selectRow(0);
    m_widgets.table->setFocus(Qt::ShortcutFocusReason);
    return true;
}
