#include "windows/preparetagsdialog.h"

#include "formats/closespelling.h"
#include "library/changepreview.h"
#include "library/songtable.h"
#include "library/tagremarks.h"
#include "windows/acceptafterwork.h"
#include "windows/filelistdialog.h"
#include "windows/plaintooltip.h"
#include "windows/shownprogress.h"

#include "ui_preparetagsdialog.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace
{

enum TagColumn { TagSong, ShownNow, InTheTag, ShownThen };

constexpr int tagSongColumnWidth = 230;
constexpr int textColumnWidth = 190;
constexpr int fieldRole = Qt::UserRole;

/** The fields of so many songs are open from the beginning. */
constexpr qsizetype openSongs = 100;

struct TagField {
    ChangePreview::Field field;
    QString SongInfo::*text; ///< null for a number
};

constexpr TagField tagFields[] = {{ChangePreview::Field::Title, &SongInfo::title},
                                  {ChangePreview::Field::Artist, &SongInfo::artist},
                                  {ChangePreview::Field::Genre, &SongInfo::genre},
                                  {ChangePreview::Field::Author, &SongInfo::author},
                                  {ChangePreview::Field::Length, nullptr},
                                  {ChangePreview::Field::Tempo, nullptr},
                                  {ChangePreview::Field::Key, &SongInfo::key}};

QString tagText(const SongInfo &info, const TagField &field)
{
    if (field.text != nullptr)
        return info.*field.text;
    if (field.field == ChangePreview::Field::Length)
        return info.length > 0 ? SongTable::lengthText(info.length) : QString();
    return info.userBpm > 0 ? QString::number(info.userBpm) : QString();
}

} // namespace

PrepareTagsDialog::PrepareTagsDialog(const QList<Mp3Preparation> &preparations,
                                     OpenHistory openHistory, QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::PrepareTagsDialog)
    , m_openHistory(std::move(openHistory))
{
    ui->setupUi(this);
    for (const Mp3Preparation &preparation : preparations)
        m_songs.append({preparation, preparation.proposed()});
    ui->songsTreeWidget->setColumnWidth(TagSong, tagSongColumnWidth);
    for (const int column : {ShownNow, InTheTag})
        ui->songsTreeWidget->setColumnWidth(column, textColumnWidth);
    connect(ui->songsTreeWidget, &QTreeWidget::itemExpanded, this, &PrepareTagsDialog::showFields);
    connect(ui->songsTreeWidget, &QTreeWidget::itemChanged, this, &PrepareTagsDialog::takeEdit);
    connect(ui->songsTreeWidget, &QTreeWidget::itemActivated, this, &PrepareTagsDialog::editField);
    connect(ui->allCheckBox, &QCheckBox::clicked, this, &PrepareTagsDialog::tickAll);
    connect(ui->applyPushButton, &QPushButton::clicked, this, &PrepareTagsDialog::apply);
    connect(ui->closePushButton, &QPushButton::clicked, this, &QDialog::reject);
    showSongs();
}

PrepareTagsDialog::~PrepareTagsDialog() = default;

void PrepareTagsDialog::showSongs()
{
    QList<QTreeWidgetItem *> items;
    items.reserve(m_songs.size());
    for (const tagjob::Song &song : std::as_const(m_songs)) {
        const Mp3Preparation &preparation = song.preparation;
        auto *const item = new QTreeWidgetItem({QFileInfo(preparation.path()).fileName()});
        item->setText(ShownNow, tagremarks::reasonText(preparation.troubles()));
        item->setToolTip(TagSong, plainToolTip(QDir::toNativeSeparators(preparation.path())));
        item->setToolTip(ShownNow, plainToolTip(item->text(ShownNow)));
        item->setCheckState(TagSong, preparation.canBeWritten() ? Qt::Checked : Qt::Unchecked);
        item->setDisabled(!preparation.canBeWritten());
        item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
        items.append(item);
    }
    {
        const QSignalBlocker blocker(ui->songsTreeWidget);
        ui->songsTreeWidget->clear();
        ui->songsTreeWidget->addTopLevelItems(items);
    }
    if (items.size() <= openSongs)
        ui->songsTreeWidget->expandAll();
    ui->songsTreeWidget->setCurrentItem(items.value(0));
    showCount();
}

/** The texts of a song are put together when they are looked at: there may be thousands. */
void PrepareTagsDialog::showFields(QTreeWidgetItem *item)
{
    const int row = ui->songsTreeWidget->indexOfTopLevelItem(item);
    if (row < 0 || item->childCount() > 0)
        return;
    const QSignalBlocker blocker(ui->songsTreeWidget);
    const tagjob::Song &song = m_songs.at(row);
    for (const QString &remark : tagremarks::remarks(song.preparation)) {
        auto *const line = new QTreeWidgetItem(item, {remark});
        line->setToolTip(TagSong, plainToolTip(remark));
        line->setFirstColumnSpanned(true);
    }
    QFont bold = font();
    bold.setBold(true);
    int number = -1;
    for (const TagField &field : tagFields) {
        ++number;
        const QString values[] = {tagText(song.preparation.shown(), field),
                                  tagText(song.preparation.said(), field),
                                  tagText(song.texts, field)};
        if (field.text != &SongInfo::title && values[0].isEmpty() && values[1].isEmpty() &&
            values[2].isEmpty())
            continue;
        auto *const line = new QTreeWidgetItem(
            item, {ChangePreview::fieldName(field.field), values[0], values[1], values[2]});
        line->setData(TagSong, fieldRole, number);
        if (field.text != nullptr)
            line->setFlags(line->flags() | Qt::ItemIsEditable);
        for (const int column : {ShownNow, InTheTag, ShownThen})
            line->setToolTip(column, plainToolTip(line->text(column)));
        if (values[0] != values[2])
            line->setFont(ShownThen, bold);
    }
}

void PrepareTagsDialog::editField(QTreeWidgetItem *item)
{
    if (item->parent() != nullptr && (item->flags() & Qt::ItemIsEditable) != 0)
        ui->songsTreeWidget->editItem(item, ShownThen);
}

/** What the user typed is spelled so that the player can show it; or he has ticked a song. */
void PrepareTagsDialog::takeEdit(QTreeWidgetItem *item, int column)
{
    QTreeWidgetItem *const song = item->parent();
    if (song == nullptr) {
        showCount();
        return;
    }
    const int row = ui->songsTreeWidget->indexOfTopLevelItem(song);
    const TagField &field = tagFields[item->data(TagSong, fieldRole).toInt()];
    if (column != ShownThen || row < 0 || field.text == nullptr)
        return;
    const QSignalBlocker blocker(ui->songsTreeWidget);
    const QString text = closeSpelling(item->text(ShownThen));
    m_songs[row].texts.*field.text = text;
    item->setText(ShownThen, text);
    item->setToolTip(ShownThen, plainToolTip(text));
    QFont face = font();
    face.setBold(text != item->text(ShownNow));
    item->setFont(ShownThen, face);
}

void PrepareTagsDialog::tickAll(bool ticked)
{
    {
        const QSignalBlocker blocker(ui->songsTreeWidget);
        for (int row = 0; row < m_songs.size(); ++row) {
            if (m_songs.at(row).preparation.canBeWritten())
                ui->songsTreeWidget->topLevelItem(row)->setCheckState(
                    TagSong, ticked ? Qt::Checked : Qt::Unchecked);
        }
    }
    showCount();
}

QList<tagjob::Song> PrepareTagsDialog::chosenSongs() const
{
    QList<tagjob::Song> chosen;
    for (int row = 0; row < m_songs.size(); ++row) {
        if (ui->songsTreeWidget->topLevelItem(row)->checkState(TagSong) == Qt::Checked)
            chosen.append(m_songs.at(row));
    }
    return chosen;
}

void PrepareTagsDialog::showCount()
{
    const qsizetype chosen = chosenSongs().size();
    ui->countLabel->setText(tr("Song scelte: %1 di %2").arg(chosen).arg(m_songs.size()));
    ui->allCheckBox->setChecked(chosen == m_songs.size() && chosen > 0);
    ui->applyPushButton->setEnabled(chosen > 0);
}

void PrepareTagsDialog::apply()
{
    const QList<tagjob::Song> chosen = chosenSongs();
    tagjob::Report report;
    {
        const auto history = m_openHistory ? m_openHistory(HistoryJob::Kind::Tags) : nullptr;
        Progress *shown = nullptr;
        ShownProgress progress(shown, windowTitle(), tr("Scrivo i tag..."),
                               static_cast<int>(chosen.size()), this);
        report = tagjob::run(chosen, history.get(), progress);
    }
    m_songs.removeIf([&report](const tagjob::Song &song) {
        return report.done.contains(song.preparation.path());
    });
    for (const tagjob::Failure &failure : std::as_const(report.failed))
        examineAnew(failure.path);
    if (!report.done.isEmpty())
        emit written(report.done);
    tell(report);
    if (m_songs.isEmpty())
        acceptAfterWork(*this);
    else
        showSongs();
}

/** Another program may have changed the file: its song is shown as it is now. */
void PrepareTagsDialog::examineAnew(const QString &path)
{
    const auto now = Mp3Preparation::of(path);
    for (tagjob::Song &song : m_songs) {
        if (now && song.preparation.path() == path)
            song = {*now, now->proposed()};
    }
}

/** A job without failures that left no song is told by the window's end. */
void PrepareTagsDialog::tell(const tagjob::Report &report)
{
    const auto count = [](qsizetype songs) { return static_cast<int>(songs); };
    QStringList lines;
    if (!report.done.isEmpty())
        lines << tr("Tag scritti: %n.", nullptr, count(report.done.size()));
    if (!report.failed.isEmpty())
        lines << tr("%n song sono rimaste come sono.", nullptr, count(report.failed.size()));
    if (report.stopped)
        lines << tr("Interrotto: le altre song non sono state toccate.");
    if (report.failed.isEmpty() && !report.stopped && m_songs.isEmpty())
        return;
    QMessageBox box(report.failed.isEmpty() ? QMessageBox::Information : QMessageBox::Warning,
                    windowTitle(), lines.join(QLatin1Char('\n')), QMessageBox::Ok, this);
    box.setDefaultButton(QMessageBox::Ok);
    box.setEscapeButton(QMessageBox::Ok);
    const QPushButton *const details =
        report.failed.isEmpty() ? nullptr
                                : box.addButton(tr("&Dettagli..."), QMessageBox::ActionRole);
    box.exec();
    if (details == nullptr || box.clickedButton() != details)
        return;
    QList<FileListDialog::Line> files;
    for (const tagjob::Failure &failure : report.failed)
        files.append({failure.path, failure.reason});
    FileListDialog(windowTitle(), tr("&Song rimaste come sono:"), files, this).exec();
}
