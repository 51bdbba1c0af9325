// The settings store: its name and its keys.
#pragma once

#include <QString>

namespace settings
{
inline const QString organisation = QStringLiteral("kavena_pc");
inline const QString application = QStringLiteral("kravo");

inline const QString language = QStringLiteral("language");
inline const QString logEnabled = QStringLiteral("logenabled");
inline const QString logClear = QStringLiteral("logclear");
inline const QString copyrightAsk = QStringLiteral("copyrightAsk");
inline const QString mediaRoot = QStringLiteral("mediaroot");
inline const QString previewChanges = QStringLiteral("previewchanges");
inline const QString historyLimit = QStringLiteral("historylimit"); ///< megabytes
inline const QString recentFolders = QStringLiteral("recentfolders");
inline const QString recentLists = QStringLiteral("recentlists");
inline const QString readBack = QStringLiteral("readback");
inline const QString windowPlace = QStringLiteral("windowplace");
inline const QString windowMaximised = QStringLiteral("windowmaximised");
inline const QString columnWidths = QStringLiteral("columnwidths"); ///< group, a key per column
inline const QString columnOrder = QStringLiteral("columnorder");
inline const QString columnsShown = QStringLiteral("columnsshown");
inline const QString sortField = QStringLiteral("sortfield");
inline const QString sortDescending = QStringLiteral("sortdescending");
inline const QString volume = QStringLiteral("volume");
inline const QString soundFont = QStringLiteral("soundfont");
} // namespace settings
