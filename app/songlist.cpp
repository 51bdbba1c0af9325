#include "app/songlist.h"

#include "app/columnchoice.h"
#include "app/columnlayout.h"
#include "app/listplace.h"
#include "app/rowactions.h"
#include "app/songfilter.h"
#include "app/sortmenu.h"
#include "app/statussummary.h"
#include "formats/metasong.h"
#include "windows/busystate.h"
#include "windows/nomatchpage.h"
#include "windows/statebuttons.h"
#include "windows/statusrowdelegate.h"
#include "windows/usersongsreltablemodel.h"

#include "ui_mainwindow.h"

#include <QHeaderView>
#include <QMainWindow>
#include <QSet>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTableView>

namespace
{

/** As high as the desktop's style and font make a row of a list. */
int desktopRowHeight(const QTableView *view)
{
    QStyleOptionViewItem row;
    row.initFrom(view);
    row.features = QStyleOptionViewItem::HasDisplay;
    row.text = QStringLiteral("M");
    return view->style()->sizeFromContents(QStyle::CT_ItemViewItem, &row, QSize(), view).height();
}

} // namespace

SongList::SongList(QMainWindow *window, const Ui::MainWindow &form, const QSqlDatabase &songs,
                   QSettings &settings, const BusyState &busy, ActionGate &gate)
    : QObject(window)
    , m_model(new UserSongsRelTableModel(window, songs))
    , m_view(form.userLibraryTableView)
    , m_busy(busy)
{
    m_model->setHeaderLabels();
    setUpView();
    m_choice = new ColumnChoice(m_view, *m_model, settings, form.menuColumns);
    fitColumns();
    m_columns = new ColumnLayout(m_view, *m_model, settings);
    m_columns->columnsWereFitted();
    connect(m_choice, &ColumnChoice::restored, m_columns, &ColumnLayout::releaseWidths);
    connect(m_choice, &ColumnChoice::changed, this, &SongList::fitColumns);
    new SortMenu(form.menuSort, m_view, m_columns);

    form.filterLineEdit->setEnabled(true);
    form.actionFindSong->setEnabled(true);
    m_filter = new SongFilter(form.filterLineEdit, m_view, *m_model, busy);
    connect(form.actionFindSong, &QAction::triggered, m_filter, &SongFilter::focusField);

    m_summary = new StatusSummary(form.statusBar, m_view, *m_model, gate);
    connect(m_filter, &SongFilter::applied, m_summary, &StatusSummary::refresh);
    connect(m_summary, &StatusSummary::listRequested, this, &SongList::unreadableFilesRequested);
    connect(m_summary, &StatusSummary::tagsRequested, this, &SongList::tagsRequested);
    connect(&m_summary->states(), &StateButtons::chosenChanged, m_filter,
            [this] { m_filter->setStates(m_summary->states().chosen()); });
    m_place = new ListPlace(form.listStackedWidget, m_view, busy);
    connect(m_filter, &SongFilter::applied, m_place, &ListPlace::update);
    connect(&m_place->noMatchPage(), &NoMatchPage::clearWanted, this, [this] {
        m_filter->clearText();
        m_summary->states().clear();
    });
    addRowActions(form, gate);
}

void SongList::setUpView()
{
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // A view that has its model already would sort it by the first column, backwards, at once.
    m_view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    m_view->setSortingEnabled(true);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->setShowGrid(true);
    m_view->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_view->verticalHeader()->hide();
    QHeaderView *const rows = m_view->verticalHeader();
    rows->setDefaultSectionSize(qMax(rows->defaultSectionSize(), desktopRowHeight(m_view)));
    m_view->setAlternatingRowColors(false);
    m_view->setModel(m_model);
    m_view->setDragDropMode(QAbstractItemView::DragOnly);
    m_view->setDefaultDropAction(Qt::CopyAction);
    // A drag holds up the work in whose middle it begins.
    connect(&m_busy, &BusyState::began, m_view, [view = m_view] { view->setDragEnabled(false); });
    connect(&m_busy, &BusyState::ended, m_view, [view = m_view] { view->setDragEnabled(true); });
    m_view->setItemDelegate(
        new StatusRowDelegate(m_model->colIdxStatus(), m_model->colIdxType(), m_view));
    for (const songcolumns::Column hidden :
         {songcolumns::FileName, songcolumns::Status, songcolumns::Id})
        m_view->hideColumn(hidden);
}

void SongList::addRowActions(const Ui::MainWindow &form, ActionGate &gate)
{
    const auto *const rows = new RowActions(m_view,
                                            {form.actionEditSong, form.actionRemoveSong,
                                             form.actionDeleteSongFile, form.actionAddToCatalogue},
                                            gate);
    connect(rows, &RowActions::editRequested, this, &SongList::editRequested);
    connect(rows, &RowActions::removeRequested, this, &SongList::removeRequested);
    connect(rows, &RowActions::deleteRequested, this, &SongList::deleteRequested);
    connect(rows, &RowActions::catalogueRequested, this, &SongList::catalogueRequested);

    // The mouse reaches the table while work runs, since the songs can be looked at then.
    connect(m_view, &QTableView::doubleClicked, this, [this](const QModelIndex &index) {
        if (!m_busy)
            emit editRequested(index);
    });
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_view, &QTableView::customContextMenuRequested, this, [this](const QPoint &position) {
        if (!m_busy)
            emit menuRequested(position);
    });
}

QStringList SongList::files() const
{
    QStringList files;
    for (int row = 0; row < m_model->goodRowCount(); ++row)
        files.append(m_model->fileName(row));
    return files;
}

int SongList::currentRow() const
{
    return m_view->currentIndex().row();
}

void SongList::fitColumns()
{
    for (int column = 0; column < songcolumns::count; ++column) {
        if (column != songcolumns::FileName && column != songcolumns::Status)
            m_view->resizeColumnToContents(column);
    }
    if (!m_view->isColumnHidden(m_model->colIdxFolder()))
        m_view->resizeColumnToContents(m_model->colIdxFolder());
    if (m_columns != nullptr)
        m_columns->columnsWereFitted();
}

void SongList::startImport()
{
    m_model->select();
    // New rows stand in the order in which they were picked, as the header must say.
    m_view->sortByColumn(-1, Qt::AscendingOrder);
}

void SongList::showImport(const QList<UnreadableFile> &unreadable)
{
    m_summary->setUnreadableFiles(unreadable);
    m_columns->sortAsChosen();
    m_filter->apply();
    m_place->update();
    fitColumns();
}

void SongList::sortAgain()
{
    // A view that is asked for the order that it has does nothing.
    const QHeaderView *const header = m_view->horizontalHeader();
    if (header->sortIndicatorSection() >= 0)
        m_model->sort(header->sortIndicatorSection(), header->sortIndicatorOrder());
    m_filter->apply();
    if (currentRow() >= 0)
        scrollToRow(currentRow());
}

EmptyListPage &SongList::emptyPage() const
{
    return m_place->emptyPage();
}

void SongList::showFiles(const QStringList &paths)
{
    const QSet<QString> written(paths.cbegin(), paths.cend());
    for (int row = 0; row < m_model->goodRowCount(); ++row) {
        const QString path = m_model->fileName(row);
        MetaSong song;
        if (!written.contains(path) || !song.importFile(path))
            continue;
        SongInfo info;
        song.getSongInfo(info);
        m_model->updateRow(row, info);
        m_model->setStatus(row, Database::StatusNew);
        m_model->setSaveFailure(row, SaveFailure::None);
    }
    m_filter->apply();
    fitColumns();
}

const QList<UnreadableFile> &SongList::unreadableFiles() const
{
    return m_summary->unreadableFiles();
}

void SongList::scrollToRow(int row)
{
    // A view does not scroll to what it does not show, such as the column of row numbers.
    const QModelIndex visible = m_model->index(row, ColumnChoice::firstShown(m_view));
    m_view->scrollTo(visible, QAbstractItemView::PositionAtCenter);
}

void SongList::retranslate()
{
    m_model->setHeaderLabels();
    fitColumns(); // the titles have other widths now
    m_summary->refresh();
}

void SongList::saveLayout()
{
    m_choice->save();
    m_columns->save();
}
