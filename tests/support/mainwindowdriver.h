// What several tests of the main window do with it.
#pragma once

#include "support/catalogue.h"
#include "support/interfacelanguage.h"
#include "support/songfolder.h"
#include "support/windowundertest.h"

namespace mainwindowdriver
{

inline void changeLanguage(const WindowUnderTest &window, const char *action)
{
    window.action(action)->trigger();
    QCoreApplication::processEvents();
}

/** A catalogue that knows one song, by the name of its file. */
inline bool writeCatalogue()
{
    catalogue::Row row;
    row.filename = QStringLiteral("KNOWN");
    row.title = QStringLiteral("KNOWN TITLE");
    row.artist = QStringLiteral("SURNAME NAME");
    row.altartist = QStringLiteral("Name Surname");
    row.genre = QStringLiteral("DANCE");
    row.author = QStringLiteral("AUTHOR");
    row.length = 125;
    row.bpm = 120;
    row.key = QStringLiteral("A -");
    return catalogue::write(catalogue::overrideFile, {row});
}

} // namespace mainwindowdriver
