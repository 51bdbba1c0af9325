#include "windows/renameseveraldialog.h"

#include "devindex/severalrenamer.h"
#include "windows/acceptafterwork.h"
#include "windows/filelistdialog.h"
#include "windows/plaintooltip.h"
#include "windows/shownprogress.h"

#include "ui_renameseveraldialog.h"

#include <QDir>
#include <QHeaderView>

#include <utility>

namespace
{

enum RenameColumn { NameNow, NewName, RenameNote };

constexpr int fileNameColumnWidth = 260;

QString lastPart(const QString &path)
{
    return path.section(QLatin1Char('/'), -1);
}

} // namespace

RenameSeveralDialog::RenameSeveralDialog(const QList<SongInfo> &songs, OpenHistory openHistory,
                                         QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::RenameSeveralDialog)
    , m_openHistory(std::move(openHistory))
    , m_renames(songs)
{
    ui->setupUi(this);
    // Completion would write the rest of a pattern over what the user types.
    ui->patternComboBox->setCompleter(nullptr);
    ui->patternComboBox->addItems({QStringLiteral("%artist - %title"),
                                   QStringLiteral("%title - %artist"), QStringLiteral("%title"),
                                   QStringLiteral("%genre - %artist - %title")});
    m_later.setSingleShot(true);
    m_later.setInterval(0);
    connect(&m_later, &QTimer::timeout, this, &RenameSeveralDialog::preview);
    makeRows();
    connect(ui->patternComboBox, &QComboBox::editTextChanged, this, [this] { m_later.start(); });
    connect(ui->shortCheckBox, &QCheckBox::toggled, this, [this] { m_later.start(); });
    connect(ui->songsTreeWidget, &QTreeWidget::itemChanged, this,
            &RenameSeveralDialog::showSummary);
    connect(ui->songsTreeWidget, &QTreeWidget::currentItemChanged, this,
            &RenameSeveralDialog::showSummary);
    connect(ui->applyPushButton, &QPushButton::clicked, this, &RenameSeveralDialog::apply);
    connect(ui->cancelPushButton, &QPushButton::clicked, this, &QDialog::reject);
    preview();
}

RenameSeveralDialog::~RenameSeveralDialog() = default;

void RenameSeveralDialog::makeRows()
{
    QList<QTreeWidgetItem *> items;
    for (const SeveralRename &song : m_renames.songs()) {
        auto *const item = new QTreeWidgetItem({lastPart(song.info.fileName)});
        item->setCheckState(NameNow, Qt::Checked);
        item->setToolTip(NameNow, plainToolTip(QDir::toNativeSeparators(song.info.fileName)));
        items.append(item);
    }
    ui->songsTreeWidget->addTopLevelItems(items);
    ui->songsTreeWidget->setColumnWidth(NameNow, fileNameColumnWidth);
    ui->songsTreeWidget->setColumnWidth(NewName, fileNameColumnWidth);
}

void RenameSeveralDialog::preview()
{
    m_later.stop();
    m_renames.setPattern(ui->patternComboBox->currentText(), ui->shortCheckBox->isChecked());
    const QSignalBlocker blocker(ui->songsTreeWidget);
    ui->songsTreeWidget->setUpdatesEnabled(false);
    QFont bold = font();
    bold.setBold(true);
    int row = 0;
    for (const SeveralRename &song : m_renames.songs()) {
        QTreeWidgetItem *const item = ui->songsTreeWidget->topLevelItem(row++);
        item->setText(NewName, lastPart(song.newPath));
        item->setFont(NewName, bold);
        item->setText(RenameNote, song.reason);
        item->setToolTip(NewName, plainToolTip(item->text(NewName)));
        item->setToolTip(RenameNote, plainToolTip(song.reason));
    }
    ui->songsTreeWidget->setUpdatesEnabled(true);
    showSummary();
}

void RenameSeveralDialog::showSummary()
{
    const auto count = static_cast<int>(chosen().size());
    ui->summaryLabel->setText(m_renames.problem().isEmpty()
                                  ? tr("%n file cambiano nome", nullptr, count) +
                                        QStringLiteral(", ") +
                                        tr("%n non sono adatti", nullptr, m_renames.unfit())
                                  : tr("Modello: %1").arg(m_renames.problem()));
    ui->applyPushButton->setEnabled(count > 0);
    if (m_renames.songs().empty())
        return;
    const int row = ui->songsTreeWidget->indexOfTopLevelItem(ui->songsTreeWidget->currentItem());
    const SeveralRename &song = m_renames.songs().at(static_cast<size_t>(std::max(row, 0)));
    const QString result = song.isRenamed()         ? lastPart(song.newPath)
                           : !song.reason.isEmpty() ? song.reason
                                                    : tr("non cambia");
    ui->exampleLabel->setText(tr("Esempio: %1: %2").arg(lastPart(song.info.fileName), result));
}

QList<SeveralRename> RenameSeveralDialog::chosen() const
{
    QList<SeveralRename> songs;
    int row = 0;
    for (const SeveralRename &song : m_renames.songs()) {
        const QTreeWidgetItem *const item = ui->songsTreeWidget->topLevelItem(row++);
        if (song.isRenamed() && item->checkState(NameNow) == Qt::Checked)
            songs.append(song);
    }
    return songs;
}

void RenameSeveralDialog::apply()
{
    if (m_later.isActive()) {
        preview(); // a name that was not seen is not given
        return;
    }
    const QList<SeveralRename> songs = chosen();
    SeveralRenamer::Report report;
    {
        SeveralRenamer renamer(
            [this](const QString &path, const QString &newPath) { emit renamed(path, newPath); });
        renamer.setHistory(m_openHistory);
        Progress *shown = nullptr;
        ShownProgress progress(shown, tr("Rinomina i file"), tr("Rinomino i file..."),
                               static_cast<int>(songs.size()), this);
        report = renamer.run(songs, progress);
    }
    if (!report.problems.isEmpty()) {
        QList<FileListDialog::Line> lines;
        for (const SongFinding &problem : std::as_const(report.problems))
            lines.append({problem.path, problem.reason});
        FileListDialog(tr("Rinomina i file"), tr("Questi &file non sono a posto:"), lines, this)
            .exec();
    }
    if (report.renamed > 0 || !report.stopped)
        acceptAfterWork(*this);
}
