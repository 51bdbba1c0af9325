// Folders of a memory in which no songs are looked for.
#pragma once

#include <QString>

/** True for the name of a folder that belongs to the player and is never looked into. */
bool isPlayerFolder(const QString &name);

/** True for the name of a folder in which the player keeps its own files, playlists among them. */
bool isReservedFolder(const QString &name);

/**
 * True for the name of a folder that operating systems and players keep for themselves: deleted
 * files, what a repair found, and the like. Only some systems show them as hidden.
 */
bool isSystemFolder(const QString &name);

/** True for the folder that a Linux file system keeps for its repair and that only root reads. */
bool isRepairFolder(const QString &name);
