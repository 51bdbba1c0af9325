// Which names a song on a memory may get.
#pragma once

#include <QCoreApplication>
#include <QString>

class SongName
{
    Q_DECLARE_TR_FUNCTIONS(SongName)

public:
    /** The longest name in front of the suffix, in characters. */
    static constexpr int maxLength = 8;

    /**
     * Why a song of the path on this memory cannot be called newName, its name with the suffix, in
     * a few words for the user; empty when it can. The player shows at most maxLength characters of
     * its character set and finds paths up to 45 characters; FAT, and computers that read it,
     * forbid some characters and names; and neither another file nor the karaoke pictures of
     * another song may have the name, in whatever letter case.
     */
    static QString whyNot(const QString &root, const QString &path, const QString &newName);

private:
    static QString whyNotWritten(const QString &base);
};
