#include "windows/shortcutsdialog.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>

namespace
{

/** The entry's text without the sign for its letter and the dots for a window. */
QString plainText(const QString &text)
{
    static const QRegularExpression mnemonic(QStringLiteral("&(.)"));
    QString plain = text;
    plain.replace(mnemonic, QStringLiteral("\\1"));
    if (plain.endsWith(QStringLiteral("...")))
        plain.chop(3);
    return plain;
}

/** Entries with the same keys twice, for both keyboards, have them once. */
QString keysOf(const QAction &entry)
{
    QStringList keys;
    const QList<QKeySequence> all = entry.shortcuts();
    for (const QKeySequence &one : all)
        keys.append(one.toString(QKeySequence::NativeText));
    keys.removeAll(QString());
    keys.removeDuplicates();
    return keys.join(QStringLiteral(", "));
}

/** The rows for the menu's entries and for those of the menus in it. */
QList<QStringList> rowsOf(const QMenu &menu)
{
    QList<QStringList> rows;
    const QList<QAction *> entries = menu.actions();
    for (const QAction *const entry : entries) {
        if (!entry->isVisible())
            continue;
        if (entry->menu() != nullptr)
            rows += rowsOf(*entry->menu());
        else if (const QString keys = keysOf(*entry); !keys.isEmpty())
            rows.append({keys, plainText(entry->text())});
    }
    return rows;
}

QList<InfoTableDialog::Group> groupsOf(const QMenuBar &menus)
{
    QList<InfoTableDialog::Group> groups;
    const QList<QAction *> entries = menus.actions();
    for (const QAction *const entry : entries) {
        if (!entry->isVisible() || entry->menu() == nullptr)
            continue;
        InfoTableDialog::Group group{plainText(entry->text()), rowsOf(*entry->menu())};
        if (!group.rows.isEmpty())
            groups.append(std::move(group));
    }
    return groups;
}

QString native(const QKeySequence &keys)
{
    return keys.toString(QKeySequence::NativeText);
}

/** The keys that work in a list or in a window and stand in no menu. */
QList<InfoTableDialog::Group> groupsOutsideMenus()
{
    return {{ShortcutsDialog::tr("Nelle liste"),
             {{native(Qt::Key_Space), ShortcutsDialog::tr("Ascolta la song scelta")}}},
            {ShortcutsDialog::tr("Contenuto della memoria"),
             {{native(QKeySequence::Find), ShortcutsDialog::tr("Cerca song")},
              {native(QKeySequence::Refresh), ShortcutsDialog::tr("Rileggi la memoria")}}}};
}

} // namespace

ShortcutsDialog::ShortcutsDialog(const QMenuBar &menus, QWidget *parent)
    : InfoTableDialog(tr("Tasti di scelta rapida"), {tr("Tasti"), tr("Comando")},
                      groupsOf(menus) + groupsOutsideMenus(), parent)
{
}
