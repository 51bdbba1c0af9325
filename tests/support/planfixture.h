// A memory, songs and plans of a transfer between them, for their tests.
#pragma once

#include "devindex/transferplanner.h"
#include "support/copyingprogress.h"
#include "support/mountedcard.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QStorageInfo>
#include <QTest>

#include <memory>
#include <optional>

namespace planfixture
{

using State = TransferPlan::State;
using Remedy = TransferPlan::Remedy;

class PlanFixture : public QObject
{
protected:
    void init()
    {
        m_card = std::make_unique<MountedCard>();
        m_folder = m_card->path(QStringLiteral("pop"));
        m_room = {};
        m_progress = std::make_unique<CopyingProgress>();
    }
    void cleanup() { m_card.reset(); }

    /** Songs of the music folder. */
    QString song(const QString &name, const QByteArray &title) const
    {
        return m_card->writeMusic(name, MountedCard::midi(title));
    }
    QString onCard(const QString &name, const QByteArray &title) const
    {
        return m_card->writeOnCard(name, MountedCard::midi(title));
    }
    QString inFolder(const QString &name) const { return m_folder + QLatin1Char('/') + name; }

    std::optional<TransferPlan> tryPlan(const QStringList &files, bool others = false)
    {
        TransferPlanner planner(m_card->root(), m_folder);
        if (m_room)
            planner.setRoom(*m_room);
        if (others)
            planner.listOthers();
        return planner.plan(files, *m_progress);
    }
    TransferPlan plan(const QStringList &files, bool others = false)
    {
        return tryPlan(files, others).value_or(TransferPlan());
    }

    /** A card as it is bought, whatever file system the test runs on. */
    static MemoryRoom fatRoom(qint64 freeBytes = 1000000000, qint64 clusterSize = 32768)
    {
        MemoryRoom room;
        room.freeBytes = freeBytes;
        room.totalBytes = 2 * freeBytes;
        room.clusterSize = clusterSize;
        room.medium.fileSystem = "vfat";
        return room;
    }

    /** All files and folders of the card, with their bytes. */
    QMap<QString, QByteArray> snapshot() const
    {
        QMap<QString, QByteArray> files;
        QDirIterator items(m_card->root(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                           QDirIterator::Subdirectories);
        while (items.hasNext()) {
            QFile file(items.next());
            files.insert(file.fileName(), file.open(QFile::ReadOnly) ? file.readAll() : "folder");
        }
        return files;
    }

    std::unique_ptr<MountedCard> m_card;
    std::unique_ptr<CopyingProgress> m_progress;
    QString m_folder;
    std::optional<MemoryRoom> m_room;
};

} // namespace planfixture
