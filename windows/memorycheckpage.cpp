#include "windows/memorycheckpage.h"

#include "windows/plaintooltip.h"

#include <QHeaderView>
#include <QLabel>
#include <QMap>
#include <QPushButton>
#include <QTreeWidget>

#include <algorithm>
#include <climits>

namespace
{

using Kind = MemoryCheck::Kind;

/** More lines nobody reads, and a hostile index could have millions. */
constexpr qsizetype mostLines = 500;

/** The button's text as part of a sentence. */
QString nameOf(const QPushButton *button)
{
    return button->text().remove(QLatin1Char('&')).remove(QStringLiteral("..."));
}

/** Kinds that mean the same to a user are told together. */
Kind toldAs(Kind kind)
{
    switch (kind) {
    case Kind::WrongLetter:
        return Kind::WrongOrder;
    case Kind::WrongSize:
    case Kind::ListedTwice:
    case Kind::WrongSongs:
    case Kind::WrongGroup:
    case Kind::WrongCounts:
        return Kind::BadRecord;
    default:
        return kind;
    }
}

bool isHelpedByUpdate(Kind kind)
{
    return kind == Kind::MissingSong || kind == Kind::ChangedSong || kind == Kind::UnlistedSong ||
           kind == Kind::NoIndex;
}

} // namespace

MemoryCheckPage::MemoryCheckPage(const Widgets &widgets, QObject *parent)
    : QObject(parent)
    , m_widgets(widgets)
{
    QHeaderView *const header = m_widgets.tree->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    header->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(m_widgets.check, &QPushButton::clicked, this, &MemoryCheckPage::checkRequested);
    connect(m_widgets.update, &QPushButton::clicked, this, &MemoryCheckPage::updateRequested);
    connect(m_widgets.rebuild, &QPushButton::clicked, this, &MemoryCheckPage::rebuildRequested);
    connect(m_widgets.mend, &QPushButton::clicked, this, &MemoryCheckPage::mendRequested);
    showFindings();
}

void MemoryCheckPage::setContents(const SharedContents &contents)
{
    m_contents = contents;
    m_findings.clear();
    m_isChecked = false;
    showFindings();
}

void MemoryCheckPage::setFindings(const QList<MemoryCheck::Finding> &findings)
{
    m_findings = findings;
    m_isChecked = true;
    showFindings();
}

void MemoryCheckPage::setBusy(bool busy)
{
    m_isBusy = busy;
    enableButtons();
}

void MemoryCheckPage::retranslate()
{
    showFindings();
}

void MemoryCheckPage::showFindings()
{
    m_widgets.tree->clear();
    QMap<Kind, QList<const MemoryCheck::Finding *>> byKind;
    for (const MemoryCheck::Finding &finding : std::as_const(m_findings))
        byKind[toldAs(finding.kind)].append(&finding);
    for (auto found = byKind.cbegin(); found != byKind.cend(); ++found) {
        const QList<const MemoryCheck::Finding *> &findings = found.value();
        qint64 count = 0;
        for (const MemoryCheck::Finding *const finding : findings)
            count += finding->count;
        auto *const top = new QTreeWidgetItem(
            {QStringLiteral("%1 (%2)").arg(sentence(found.key())).arg(count), remedy(found.key())});
        m_widgets.tree->addTopLevelItem(top);
        const qsizetype lines = std::min(findings.size(), mostLines);
        for (qsizetype line = 0; line < lines; ++line) {
            const QString text =
                QStringLiteral("%1: %2").arg(findings.at(line)->path, findings.at(line)->text);
            auto *const item = new QTreeWidgetItem(top, {text});
            item->setToolTip(0, plainToolTip(text));
        }
        if (lines < findings.size())
            new QTreeWidgetItem(
                top,
                {tr("e altri %n", "", static_cast<int>(std::min(count - lines, qint64{INT_MAX})))});
    }
    if (byKind.size() == 1)
        m_widgets.tree->expandAll();
    QString text;
    if (m_contents && !m_isChecked)
        text = tr("Il controllo confronta database, playlist e file tra loro. Non cambia nulla.");
    else if (m_contents && m_findings.isEmpty())
        text = tr("La memoria è in ordine.");
    else if (m_contents)
        text = tr("La memoria non è in ordine. Accanto a ogni punto sta che cosa aiuta.");
    m_widgets.summary->setText(text);
    enableButtons();
}

void MemoryCheckPage::enableButtons()
{
    const bool canAct = m_contents && !m_isBusy;
    // A folder that was never a memory gets no database by the way.
    const bool mayBuild = canAct && m_contents->facts().isWritable &&
                          (m_contents->facts().isOnMemory ||
                           m_contents->memory().indexState() != MemorySongs::IndexState::Absent);
    const bool hasLost = std::any_of(m_findings.cbegin(), m_findings.cend(),
                                     [](const MemoryCheck::Finding &finding) {
                                         return finding.kind == Kind::UnknownSongInPlaylist;
                                     });
    m_widgets.check->setEnabled(canAct);
    m_widgets.update->setEnabled(mayBuild);
    m_widgets.rebuild->setEnabled(mayBuild);
    m_widgets.mend->setEnabled(mayBuild && hasLost);
}

QString MemoryCheckPage::sentence(Kind kind)
{
    switch (kind) {
    case Kind::NoIndex:
        return tr("Il player non trova nessuna song: il database non è completo");
    case Kind::MissingSong:
        return tr("Song che il player elenca, ma che non ci sono più");
    case Kind::ChangedSong:
        return tr("Song modificate: il player ne mostra ancora i dati vecchi");
    case Kind::OtherSong:
        return tr("Song di cui il player mostra dati che nel file non ci sono");
    case Kind::UnlistedSong:
        return tr("Song che il player non trova ancora");
    case Kind::TooLongPath:
        return tr("Song che con le loro cartelle hanno un nome troppo lungo per il player");
    case Kind::UnreadFolder:
        return tr("Cartelle che non si possono leggere");
    case Kind::UnusableName:
        return tr("Nomi con caratteri che non si possono leggere");
    case Kind::UnknownSongInPlaylist:
        return tr("Song perdute nelle playlist");
    case Kind::MissingPlaylist:
        return tr("Playlist che il player elenca, ma che non può leggere");
    case Kind::TooManySongs:
        return tr("Più song di quante il player ne conti");
    case Kind::WrongOrder:
        return tr("Il player cerca in un ordine sbagliato");
    default:
        return tr("Il database è danneggiato");
    }
}

QString MemoryCheckPage::remedy(Kind kind) const
{
    if (kind == Kind::UnknownSongInPlaylist)
        return nameOf(m_widgets.mend);
    if (kind == Kind::MissingPlaylist)
        return tr("eliminare la playlist sul player");
    if (kind == Kind::TooManySongs)
        return tr("eliminare song");
    if (kind == Kind::TooLongPath || kind == Kind::UnusableName)
        return tr("dare un altro nome nel file manager");
    if (kind == Kind::UnreadFolder)
        return tr("controllare la memoria con gli strumenti del sistema");
    return nameOf(isHelpedByUpdate(kind) ? m_widgets.update : m_widgets.rebuild);
}
