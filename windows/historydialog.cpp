#include "windows/historydialog.h"

#include "library/changepreview.h"
#include "library/historytexts.h"
#include "library/songfields.h"
#include "windows/plaintooltip.h"
#include "windows/takingback.h"

#include "ui_historydialog.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QHeaderView>
#include <QLocale>

#include <algorithm>
#include <memory>

namespace
{

enum HistoryJobColumn { JobTime, JobKind, JobSongs, JobState };
enum HistorySongColumn { HistorySongName, HistoryBefore, HistoryAfter, HistoryNow };

constexpr int nameColumnWidth = 270;
constexpr int oldAndNewWidth = 170;
constexpr int jobNumberRole = Qt::UserRole;

/** The fields of so many songs are open from the beginning. */
constexpr qsizetype fewSongs = 20;

} // namespace

HistoryDialog::HistoryDialog(UserHistory &history, const QStringList &knownSongs, QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::HistoryDialog)
    , m_history(history)
    , m_knownSongs(knownSongs)
    , m_undo(history.store())
{
    ui->setupUi(this);
    m_undo.setKnownSongs(knownSongs);
    ui->limitSpinBox->setRange(UserHistory::smallestLimit, UserHistory::largestLimit);
    ui->limitSpinBox->setValue(UserHistory::limit());
    ui->songsTreeWidget->setColumnWidth(HistorySongName, nameColumnWidth);
    ui->songsTreeWidget->setColumnWidth(HistoryBefore, oldAndNewWidth);
    ui->songsTreeWidget->setColumnWidth(HistoryAfter, oldAndNewWidth);
    connect(ui->jobsTreeWidget, &QTreeWidget::currentItemChanged, this, &HistoryDialog::showSongs);
    connect(ui->songsTreeWidget, &QTreeWidget::itemExpanded, this, &HistoryDialog::showFields);
    connect(ui->songsTreeWidget, &QTreeWidget::itemChanged, this, &HistoryDialog::enableButtons);
    connect(ui->takeBackPushButton, &QPushButton::clicked, this, [this] { takeBack(m_songs); });
    connect(ui->takeBackChosenPushButton, &QPushButton::clicked, this,
            [this] { takeBack(chosenSongs()); });
    connect(ui->closePushButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->limitSpinBox, &QSpinBox::valueChanged, this, &UserHistory::setLimit);
    connect(&m_check, &QTimer::timeout, this, &HistoryDialog::checkSongs);

    const QString problem = historytexts::problem(m_history.open());
    ui->problemLabel->setText(problem);
    ui->problemLabel->setVisible(!problem.isEmpty());
    showJobs();
}

HistoryDialog::~HistoryDialog() = default;

/** Keeps the chosen job where it is still there. */
void HistoryDialog::showJobs()
{
    const HistoryJob *const current = currentJob();
    const qint64 chosen = current == nullptr ? 0 : current->number;
    const QSignalBlocker blocker(ui->jobsTreeWidget);
    ui->jobsTreeWidget->clear();
    m_jobs = m_history.store().jobs();
    QTreeWidgetItem *shown = nullptr;
    for (const HistoryJob &job : std::as_const(m_jobs)) {
        auto *const item = new QTreeWidgetItem(ui->jobsTreeWidget,
                                               {QLocale().toString(job.time, QLocale::ShortFormat),
                                                historytexts::kindName(job.kind),
                                                QString::number(job.songs), stateOf(job)});
        item->setTextAlignment(JobSongs, Qt::AlignRight | Qt::AlignVCenter);
        item->setData(0, jobNumberRole, job.number);
        if (shown == nullptr || job.number == chosen)
            shown = item;
    }
    ui->jobsTreeWidget->setCurrentItem(shown);
    for (int column = 0; column < ui->jobsTreeWidget->columnCount(); ++column)
        ui->jobsTreeWidget->resizeColumnToContents(column);
    showSongs();
}

QString HistoryDialog::stateOf(const HistoryJob &job) const
{
    if (UserHistory::isTakenBack(job, m_jobs))
        return songsTakenBack(job) < job.songs ? tr("annullato in parte") : tr("annullato");
    if (job.takesBack == 0)
        return {};
    const auto original =
        std::find_if(m_jobs.cbegin(), m_jobs.cend(),
                     [&job](const HistoryJob &other) { return other.number == job.takesBack; });
    return original == m_jobs.cend() ? QString()
                                     : tr("di: %1").arg(TakingBack::described(*original));
}

/** How many songs all jobs wrote that took this one back. */
int HistoryDialog::songsTakenBack(const HistoryJob &job) const
{
    int songs = 0;
    for (const HistoryJob &other : m_jobs)
        songs += other.takesBack == job.number ? other.songs : 0;
    return songs;
}

const HistoryJob *HistoryDialog::currentJob() const
{
    const QTreeWidgetItem *const item = ui->jobsTreeWidget->currentItem();
    for (const HistoryJob &job : m_jobs) {
        if (item != nullptr && job.number == item->data(0, jobNumberRole).toLongLong())
            return &job;
    }
    return nullptr;
}

void HistoryDialog::showSongs()
{
    const HistoryJob *const job = currentJob();
    m_songs = job == nullptr ? QList<HistorySong>() : m_history.store().songs(job->number);
    // A song that its job was about to write, and did not, is none of the job's.
    m_songs.removeIf([](const HistorySong &song) { return song.newDigest.isEmpty(); });
    QList<QTreeWidgetItem *> items;
    items.reserve(m_songs.size());
    for (const HistorySong &song : std::as_const(m_songs)) {
        auto *const item = new QTreeWidgetItem({QFileInfo(song.path).fileName()});
        item->setCheckState(HistorySongName, Qt::Unchecked);
        item->setToolTip(HistorySongName, plainToolTip(QDir::toNativeSeparators(song.path)));
        item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
        items.append(item);
    }
    {
        const QSignalBlocker blocker(ui->songsTreeWidget);
        ui->songsTreeWidget->clear();
        ui->songsTreeWidget->addTopLevelItems(items);
    }
    if (items.size() <= fewSongs)
        ui->songsTreeWidget->expandAll();
    m_checked = 0;
    m_check.start(0);
    checkSongs();
    enableButtons();
}

/** The values of a song are put together when they are looked at: there may be thousands. */
void HistoryDialog::showFields(QTreeWidgetItem *item)
{
    const int row = ui->songsTreeWidget->indexOfTopLevelItem(item);
    if (row < 0 || row >= m_songs.size() || item->childCount() > 0)
        return;
    const HistorySong &song = m_songs.at(row);
    QFont bold = font();
    bold.setBold(true);
    if (!song.newPath.isEmpty())
        new QTreeWidgetItem(item, {tr("Nome file"), QFileInfo(song.path).fileName(),
                                   QFileInfo(song.newPath).fileName()});
    for (const ChangePreview::Field field : songfields::all()) {
        const QString values[] = {songfields::text(song.before, field),
                                  songfields::text(song.after, field)};
        if (values[0].isEmpty() && values[1].isEmpty())
            continue;
        auto line = std::make_unique<QTreeWidgetItem>(QStringList{ChangePreview::fieldName(field)});
        for (const int column : {HistoryBefore, HistoryAfter}) {
            const QString &value = values[column - HistoryBefore];
            line->setText(column, value.isEmpty() ? ChangePreview::emptyValue() : value);
            line->setToolTip(column, plainToolTip(value));
            if (value.isEmpty())
                line->setForeground(column, palette().placeholderText());
            if (values[0] != values[1])
                line->setFont(column, bold);
        }
        item->addChild(line.release());
    }
}

/** Finds out how the next songs stand now, for a moment. */
void HistoryDialog::checkSongs()
{
    constexpr int milliseconds = 20;
    QElapsedTimer timer;
    timer.start();
    const QSignalBlocker blocker(ui->songsTreeWidget);
    while (m_checked < m_songs.size() && !timer.hasExpired(milliseconds)) {
        const HistoryUndo::Found found = m_undo.find(m_songs.at(m_checked));
        QTreeWidgetItem *const item = ui->songsTreeWidget->topLevelItem(m_checked);
        item->setText(HistoryNow, historytexts::stateName(found.state));
        item->setToolTip(HistoryNow, plainToolTip(QDir::toNativeSeparators(found.path)));
        ++m_checked;
    }
    const bool isDone = m_checked == m_songs.size();
    if (isDone)
        m_check.stop();
    ui->checkedLabel->setText(
        isDone ? QString() : tr("Song controllate: %1 di %2").arg(m_checked).arg(m_songs.size()));
}

void HistoryDialog::enableButtons()
{
    ui->takeBackPushButton->setEnabled(!m_songs.isEmpty());
    ui->takeBackChosenPushButton->setEnabled(!chosenSongs().isEmpty());
}

QList<HistorySong> HistoryDialog::chosenSongs() const
{
    QList<HistorySong> chosen;
    for (int row = 0; row < m_songs.size(); ++row) {
        if (ui->songsTreeWidget->topLevelItem(row)->checkState(HistorySongName) == Qt::Checked)
            chosen.append(m_songs.at(row));
    }
    return chosen;
}

void HistoryDialog::takeBack(const QList<HistorySong> &songs)
{
    const HistoryJob *const job = currentJob();
    if (job == nullptr || songs.isEmpty())
        return;
    m_check.stop();
    const HistoryUndo::Report report = TakingBack::run(
        m_history, {*job, songs, ui->changedCheckBox->isChecked()}, m_knownSongs, this);
    ui->changedCheckBox->setChecked(false);
    m_undo.setKnownSongs(m_knownSongs); // their sizes have changed
    if (!report.done.isEmpty() || !report.renamed.isEmpty())
        emit takenBack(report);
    showJobs();
}
