// The keys of the menus' entries.
#pragma once

#include "windows/infotabledialog.h"

QT_BEGIN_NAMESPACE
class QMenuBar;
QT_END_NAMESPACE

/** Made from the menus as they are now: each visible entry that has keys, below its menu. */
class ShortcutsDialog : public InfoTableDialog
{
    Q_OBJECT

public:
    explicit ShortcutsDialog(const QMenuBar &menus, QWidget *parent = nullptr);
};
