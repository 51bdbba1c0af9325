// One step by which new data for many songs are made.
#pragma once

#include "library/csvlist.h"
#include "library/namepattern.h"
#include "library/songfields.h"

#include <QCoreApplication>
#include <QList>
#include <QLocale>
#include <QRegularExpression>
#include <QString>

#include <memory>
#include <optional>
#include <variant>

/** A value type. What it does depends on the song's data and path alone. */
class EditStep
{
    Q_DECLARE_TR_FUNCTIONS(EditStep)

public:
    using Field = songfields::Field;

    /** One value for all songs; an empty one takes the item away. */
    struct Value {
        Field field = Field::Title;
        QString text;
    };

    /** What the file's name, and its folders' names, say by a pattern. */
    struct FromName {
        QString pattern;
    };

    /** A text in place of another one, wherever that stands in the fields. */
    struct Replace {
        QList<Field> fields;
        QString from;
        QString to; ///< of a regular expression: "\1" is what its first group found
        bool isRegex = false;
        bool heedsCase = false;
    };

    struct LetterCase {
        enum class Kind {
            Title, ///< each word begins with a capital
            Upper,
            Lower,
            FirstLetter ///< only the text begins with a capital
        };

        QList<Field> fields;
        Kind kind = Kind::Title;
        QLocale locale; ///< whose letters these are: an "i" has another capital in Turkish
    };

    /** Two fields change places. */
    struct Swap {
        Field first = Field::Title;
        Field second = Field::Artist;
    };

    /** No blanks at both ends and one between two words; "_" becomes a blank where wanted. */
    struct Strip {
        QList<Field> fields;
        bool underscores = true;
    };

    /** The row of a list that has the file's name. */
    struct FromList {
        CsvList::Read list;
    };

    using What = std::variant<Value, FromName, Replace, LetterCase, Swap, Strip, FromList>;

    /** Texts that a step makes are no longer than this many characters. */
    static constexpr qsizetype maxText = 1000;

    explicit EditStep(What what);

    /** Why the step cannot be used for any song, in a few words for the user; empty when it can. */
    QString problem() const { return m_problem; }

    enum class Outcome {
        Done,
        DoesNotFit, ///< the song stays as it is
        TooHard     ///< the regular expression takes too long: the step cannot be used
    };

    struct Result {
        Outcome outcome = Outcome::Done;
        QString reason = {}; ///< in a few words for the user; empty when it is done
    };

    /**
     * Changes the record of the song whose file lies at the path. A step with a problem changes
     * nothing. Takes no longer than some milliseconds, whatever the expression and the text.
     */
    Result apply(SongInfo &info, const QString &path) const;

    const What &what() const { return *m_what; }

private:
    void prepare(const Value &value);
    void prepare(const FromName &step);
    void prepare(const Replace &step);
    void prepare(const LetterCase &step);
    void prepare(const Swap &step);
    void prepare(const Strip &step);
    void prepare(const FromList &step);

    Result run(const Value &value, SongInfo &info, const QString &path) const;
    Result run(const FromName &step, SongInfo &info, const QString &path) const;
    Result run(const Replace &step, SongInfo &info, const QString &path) const;
    Result run(const LetterCase &step, SongInfo &info, const QString &path) const;
    Result run(const Swap &step, SongInfo &info, const QString &path) const;
    Result run(const Strip &step, SongInfo &info, const QString &path) const;
    Result run(const FromList &step, SongInfo &info, const QString &path) const;

    bool replaceIn(QString &text, const Replace &step) const;

    std::shared_ptr<const What> m_what; ///< of all copies of the step
    QString m_problem;
    std::optional<NamePattern> m_pattern;
    QRegularExpression m_expression;
};
