// Offers a backup of the chosen files before they are rewritten.
#pragma once

#include "library/librarybackup.h"

#include <QCoreApplication>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

class WindowProgress;

/** Asks and tells the end in dialogs over the window. */
class SongBackup
{
    Q_DECLARE_TR_FUNCTIONS(MainWindow)

public:
    /** Both must outlive the object. */
    SongBackup(QWidget *window, WindowProgress &progress);

    /** Offers a backup of the files and makes it; false when they must not be rewritten. */
    bool suggest(const QStringList &files);

private:
    static LibraryBackup::Choice ask();
    bool copy(const QStringList &files, const QString &destination, int &copied);
    void report(bool succeeded);

    QWidget *const m_window;
    WindowProgress &m_progress;
    QStringList m_failed; ///< a line for each file that was not copied
};
