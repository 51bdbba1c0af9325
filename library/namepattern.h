// A pattern such as "%track - %artist - %title" that leads from a file's name to a song's data, and
// back.
#pragma once

#include "formats/songinfo.h"
#include "library/songfields.h"

#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

/**
 * Fields: %title, %artist, %genre, %author, %key, %bpm, %track (a number that no song holds, which
 * is left out), %any (any text, left out) and %name (the file's own name without its suffix; only
 * in the direction from the data to a name). "%%" is a percent sign, everything else stands for
 * itself, letter case ignored. With "/" in it, the pattern reaches into the folders: it is held
 * against as many of the path's last parts as it has itself.
 */
class NamePattern
{
    Q_DECLARE_TR_FUNCTIONS(NamePattern)

public:
    /** For which direction a pattern is meant. */
    enum class Use { ReadNames, MakeNames };

    /** Longer patterns are refused. */
    static constexpr qsizetype maxLength = 255;

    /** Why a pattern cannot be used, in a few words for the user; empty when it can. */
    static QString problemOf(const QString &text, Use use);

    /** Nothing when problemOf() has something to say. */
    static std::optional<NamePattern> parse(const QString &text, Use use);

    /** The values by their fields; each is not empty. */
    using Values = QHash<songfields::Field, QString>;

    /**
     * What the path, whose suffix does not count, says by the pattern; nothing when it does not fit
     * it. Where a text could be cut at several places, the fields in front get the less.
     */
    std::optional<Values> read(const QString &path) const;

    /**
     * The name, without a suffix, that the pattern makes for the song of this file; nothing when
     * the song lacks one of the items. Characters that no file's name can have stay in it.
     */
    std::optional<QString> make(const SongInfo &info, const QString &path) const;

    /** The fields that read() gives values for, in their order. */
    QList<songfields::Field> fields() const;

private:
    struct Part {
        enum class Kind { Literal, Field, Track, Any, Name };

        Kind kind = Kind::Literal;
        QString literal = {};
        songfields::Field field = songfields::Field::Title;
    };

    struct Matching;

    static std::optional<Part> partAt(QStringView text);
    static QString takeApart(const QString &text, Use use, QList<Part> &parts);
    bool match(Matching &matching, qsizetype part, qsizetype position) const;

    QList<Part> m_parts;
    qsizetype m_folders = 0; ///< so many "/" are in the pattern
};
