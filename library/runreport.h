// What the user is told at the end of a run over songs.
#pragma once

#include "formats/savefailure.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

/** One thing about one song that the user should know. A song may have several. */
struct SongFinding {
    enum class Kind {
        NotSaved,       ///< the song does not hold what had to be written into it
        LostCharacters, ///< characters that the player cannot show stand in it as "?"
    };

    Kind kind = Kind::NotSaved;
    QString path;
    QString reason; ///< in the user's words; for LostCharacters the list of the characters
};

/** The findings of one run, in their order. A run without problems has none. */
class RunReport
{
    Q_DECLARE_TR_FUNCTIONS(RunReport)

public:
    void add(SongFinding::Kind kind, const QString &path, const QString &reason);

    bool isEmpty() const { return m_findings.isEmpty(); }
    const QList<SongFinding> &findings() const { return m_findings; }
    int count(SongFinding::Kind kind) const;

    /** How many songs the findings are about, kind by kind; a line each. Empty without findings. */
    QString summary() const;

    /** The finding in a few words. */
    static QString text(const SongFinding &finding);

    /** A failure in the user's words; empty for None. */
    static QString reasonText(SaveFailure failure);

private:
    QList<SongFinding> m_findings;
};
