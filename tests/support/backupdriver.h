// Backups with and without windows, for their tests.
#pragma once

#include <QDialog>
#include <QPushButton>

namespace backupdriver
{

inline QPushButton *button(const QDialog &dialog, const char *name)
{
    return dialog.findChild<QPushButton *>(QString::fromLatin1(name));
}

} // namespace backupdriver
