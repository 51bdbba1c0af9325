// Which medium lies behind a folder.
#pragma once

#include <QByteArray>
#include <QString>

/**
 * Stands for the file system that holds the folder, as long as that is mounted; empty when there is
 * no such folder. After a memory was pulled out, its folder may still be there and belong to the
 * system disk.
 */
QByteArray memoryDevice(const QString &folder);

/**
 * True for a folder that lies below the root or is it, and to which no link on the way there leads
 * from anywhere else. False when there is no such folder.
 */
bool isOnMemory(const QString &folder, const QString &root);
