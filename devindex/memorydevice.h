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
