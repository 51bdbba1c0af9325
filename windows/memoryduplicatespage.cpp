#include "windows/memoryduplicatespage.h"

#include "devindex/sizetext.h"
#include "windows/paintingpaused.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSet>
#include <QSignalBlocker>
#include <QTreeWidget>

#include <algorithm>

namespace
{

constexpr int songRole = Qt::UserRole;

} // namespace

MemoryDuplicatesPage::MemoryDuplicatesPage(const Widgets &widgets, QObject *parent)
    : QObject(parent)
    , m_widgets(widgets)
{
    QHeaderView *const header = m_widgets.tree->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    connect(m_widgets.tree, &QTreeWidget::itemChanged, this,
            [this](const QTreeWidgetItem *item) { tickEverywhere(item); });
    connect(m_widgets.compare, &QPushButton::clicked, this,
            &MemoryDuplicatesPage::compareRequested);
    connect(m_widgets.remove, &QPushButton::clicked, this,
            [this] { emit removeRequested(ticked(), groupsWithoutRest()); });
    showGroups();
}

void MemoryDuplicatesPage::setContents(const SharedContents &contents)
{
    m_contents = contents;
    m_sameBytes.clear();
    m_isCompared = false;
    m_items.clear(); // nothing stays ticked
    showGroups();
}

void MemoryDuplicatesPage::setSameBytes(const QList<memoryduplicates::Group> &groups)
{
    m_sameBytes = groups;
    m_isCompared = true;
    showGroups();
}

void MemoryDuplicatesPage::retranslate()
{
    showGroups();
}

void MemoryDuplicatesPage::setBusy(bool busy)
{
    m_isBusy = busy;
    enableButtons();
}

void MemoryDuplicatesPage::showGroups()
{
    const PaintingPaused paused(m_widgets.tree);
    const QList<qsizetype> before = ticked();
    m_widgets.tree->clear();
    m_items.clear();
    if (m_contents) {
        const QSet<qsizetype> wasTicked(before.cbegin(), before.cend());
        addGroups(m_sameBytes, tr("Lo stesso file"), wasTicked);
        addGroups(m_contents->sameTitle(), tr("Stesso titolo e artista"), wasTicked);
    }
    const bool isEmpty = m_widgets.tree->topLevelItemCount() == 0;
    QString text;
    if (!m_contents)
        text = QString();
    else if (isEmpty)
        text = m_isCompared ? tr("Nessuna song è doppia.")
                            : tr("Nessuna song ha lo stesso titolo e artista di un'altra.");
    else
        text = tr("Scegliere con la spunta le song da eliminare. Stesso titolo e artista possono "
                  "essere due versioni: controllare prima.");
    if (m_contents && !m_isCompared)
        text += QLatin1Char(' ') + tr("\"%1\" trova anche i file uguali con nomi e titoli diversi.")
                                       .arg(m_widgets.compare->text());
    m_widgets.summary->setText(text);
    enableButtons();
}

void MemoryDuplicatesPage::addGroups(const QList<memoryduplicates::Group> &groups,
                                     const QString &caption, const QSet<qsizetype> &before)
{
    const QSignalBlocker quiet(m_widgets.tree);
    QList<QTreeWidgetItem *> tops;
    for (const memoryduplicates::Group &group : groups) {
        const SongInfoIndex &first = m_contents->songs().at(group.constFirst()).info;
        const QString artist = knownText(first.artist);
        auto *const top = new QTreeWidgetItem(
            {QStringLiteral("%1: %2").arg(caption, first.title) +
                 (artist.isEmpty() ? QString() : QStringLiteral(" – ") + artist),
             QString()});
        top->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        for (const qsizetype place : group) {
            const MemorySong &song = m_contents->songs().at(place);
            auto *const item = new QTreeWidgetItem(top, {song.info.path, sizeText(song.size)});
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
            item->setCheckState(0, before.contains(place) ? Qt::Checked : Qt::Unchecked);
            item->setData(0, songRole, QVariant::fromValue(place));
            item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
            m_items[place].append(item);
        }
        tops.append(top);
    }
    m_widgets.tree->addTopLevelItems(tops);
    // A memory may be one large group; opening thousands of them takes long.
    constexpr qsizetype mostOpen = 500;
    for (qsizetype at = 0; at < std::min(tops.size(), mostOpen); ++at)
        tops.at(at)->setExpanded(true);
}

QList<qsizetype> MemoryDuplicatesPage::ticked() const
{
    QList<qsizetype> songs;
    for (auto song = m_items.cbegin(); song != m_items.cend(); ++song) {
        if (song.value().constFirst()->checkState(0) == Qt::Checked)
            songs.append(song.key());
    }
    std::sort(songs.begin(), songs.end());
    return songs;
}

int MemoryDuplicatesPage::groupsWithoutRest() const
{
    int groups = 0;
    for (int top = 0; top < m_widgets.tree->topLevelItemCount(); ++top) {
        const QTreeWidgetItem *const group = m_widgets.tree->topLevelItem(top);
        int left = 0;
        for (int at = 0; at < group->childCount(); ++at)
            left += group->child(at)->checkState(0) == Qt::Checked ? 0 : 1;
        groups += left == 0 ? 1 : 0;
    }
    return groups;
}

void MemoryDuplicatesPage::tickEverywhere(const QTreeWidgetItem *item)
{
    const QVariant song = item->data(0, songRole);
    if (song.isValid()) {
        const QSignalBlocker quiet(m_widgets.tree);
        for (QTreeWidgetItem *const same : m_items.value(song.value<qsizetype>()))
            same->setCheckState(0, item->checkState(0));
        m_widgets.tree->viewport()->update();
    }
    enableButtons();
}

void MemoryDuplicatesPage::enableButtons()
{
    const bool canAct = m_contents && !m_isBusy;
    m_widgets.compare->setEnabled(canAct);
    m_widgets.remove->setEnabled(canAct && m_contents->whyNotChanged().isEmpty() &&
                                 !ticked().isEmpty());
    m_widgets.remove->setToolTip(m_contents ? m_contents->whyNotChanged() : QString());
}
