// A library and its synchronisation with answers handed in, for its tests.
#pragma once

#include "library/answer.h"
#include "library/synchronisation.h"
#include "support/librarytable.h"
#include "support/recordedprogress.h"
#include "support/songbytes.h"

namespace syncfixture
{

inline const QByteArray signature = songbytes::metaEvent(0x02, "(c) K-Ravo 2011");

inline QByteArray midi(const QByteArray &events = QByteArray())
{
    return songbytes::midiFile({songbytes::track(events + songbytes::notes())});
}

inline QByteArray signedMidi(const QByteArray &events = QByteArray())
{
    return midi(signature + events);
}

inline QByteArray titled(const QByteArray &title)
{
    return songbytes::metaEvent(0x03, title);
}

inline catalogue::Row row(const char *filename, const char *title)
{
    catalogue::Row row;
    row.filename = QString::fromUtf8(filename);
    row.title = QString::fromUtf8(title);
    row.artist = QStringLiteral("DOE JOHN");
    row.altartist = QStringLiteral("JOHN DOE");
    row.genre = QStringLiteral("SWING");
    row.author = QStringLiteral("SMITH");
    row.length = 200;
    row.bpm = 96;
    row.key = QStringLiteral("A -");
    row.markers = QStringLiteral("1;Intro;19;Verse1;");
    return row;
}

/** A run with every question answered from here. */
struct Run {
    explicit Run(LibraryTable &library)
        : synchronisation(
              library.database, library.model(),
              [this] {
                  ++backupOffers;
                  return backupAnswer;
              },
              [this](const QString &fileName) {
                  asked.append(fileName);
                  if (whileAsking)
                      whileAsking(fileName);
                  return answers.isEmpty() ? Answer::No : answers.takeFirst();
              },
              recordedBy(progress))
    {
    }

    bool backupAnswer = true;
    int backupOffers = 0;
    QList<Answer> answers; ///< to the questions, in turn; then no
    QStringList asked;
    std::function<void(const QString &fileName)> whileAsking; ///< called when it is set
    ProgressRecord progress;
    Synchronisation synchronisation;
};

inline constexpr int isNew = Database::StatusNew;
inline constexpr int isSynced = Database::StatusSynced;
inline constexpr int isNotSynced = Database::StatusNotSynced;

} // namespace syncfixture
