// A memory on which everything is that the memory window can show.
#pragma once

#include "devindex/index.h"
#include "support/indexedmemory.h"
#include "support/mountedcard.h"
#include "windows/memorycheckpage.h"
#include "windows/memorywindow.h"
#include "windows/shownprogress.h"

#include <QTabWidget>

namespace filledmemory
{

inline QString text(const char *bytes)
{
    return QString::fromUtf8(bytes);
}

/** The id of the song of this path in the index; one that no song has when it is not listed. */
inline quint32 idOf(const MountedCard &card, const QString &path)
{
    const qsizetype at = card.indexedPaths().indexOf(path);
    return at < 0 ? 0xFFFFFF : card.indexedIds().at(at);
}

/** A playlist file of these songs. */
inline QByteArray playlist(const QList<quint32> &ids)
{
    QByteArray records;
    for (const quint32 id : ids)
        records += songbytes::bigEndian(id, 4) + QByteArray(28, 'p');
    return records;
}

/** Songs of each kind with an index that fits them, and a playlist. */
inline void fill(const MountedCard &card)
{
    using indexedmemory::midi;
    using indexedmemory::mp3;
    card.writeOnCard(text("songs/Azzurro.mid"), midi("Azzurro", "Celentano", "Pop"));
    card.writeOnCard(text("songs/Volare.kar"), midi("Volare", "Modugno", "Canzone"));
    card.writeOnCard(text("songs/Ciao.mp3"), mp3("Ciao", "Morandi", "Pop"));
    card.writeOnCard(text("songs/Ciao.cdg"), "pictures");
    card.writeOnCard(text("pop/Azzurro2.mid"), midi("Azzurro", "Celentano", "Pop"));
    card.writeOnCard(text("pop/Notag.mp3"), QByteArray(200, '\xFB'));
    card.writeOnCard(text("pop/Twin.mp3"), QByteArray(200, '\xFB'));
    if (!Index().createIndex(card.root()))
        qFatal("no index");
    card.writeOnCard(text("playlist/playlist.dat"),
                     QByteArray("\x01\x00", 2) + QByteArray(30, 'l'));
    card.writeOnCard(
        text("playlist/play0001.dat"),
        playlist({idOf(card, text("/songs/Volare.kar")), idOf(card, text("/songs/Azzurro.mid"))}));
}

/** Then songs come, change and go without the index being told. */
inline void changeBehindTheIndex(MountedCard &card)
{
    card.isLeftBroken();
    card.writeOnCard(text("pop/New.mid"), indexedmemory::midi("New", "Nobody", "Pop"));
    card.writeOnCard(text("songs/Volare.kar"), indexedmemory::midi("Nel blu", "Modugno"));
    QFile changed(card.path(text("songs/Volare.kar")));
    if (!changed.open(QFile::ReadWrite) ||
        !changed.setFileTime(QDateTime(QDate(2014, 1, 2), QTime(3, 4)),
                             QFileDevice::FileModificationTime))
        qFatal("cannot change the time");
    QFile::remove(card.path(text("songs/Azzurro.mid")));
}

inline SharedContents contentsOf(const QString &root)
{
    NoProgress progress;
    const auto contents = std::make_shared<MemoryContents>(root);
    if (!contents->read(progress).isEmpty() || !contents->isRead())
        qFatal("cannot read %s", qPrintable(root));
    return contents;
}

/** The memory window with one of its pages, full of findings. */
inline std::unique_ptr<QWidget> window(int page)
{
    MountedCard card;
    fill(card);
    changeBehindTheIndex(card);
    auto shown = std::make_unique<MemoryWindow>();
    const SharedContents contents = contentsOf(card.root());
    shown->choose(card.root());
    shown->setContents(contents);
    NoProgress progress;
    shown->showDuplicates(*memoryduplicates::sameBytes(contents->songs(), progress));
    shown->checkPage().setFindings(MemoryCheck(card.root()).run());
    shown->showMessage(
        QCoreApplication::translate("MemorySongWork", "%n song eliminate dalla memoria.", "", 3));
    shown->findChild<QTabWidget *>()->setCurrentIndex(page);
    return shown;
}

} // namespace filledmemory
