// The choosers of files and folders: one kind for all windows.
#pragma once

#include <QString>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/**
 * Qt's own choosers, in the language of the program; unlike some desktops' they take *.mid for
 * SONG.MID too. At their side they offer the memories that are mounted, the one used last first.
 * A chooser that the user leaves without a choice returns empty texts and lists.
 */
namespace filechooser
{

/** Filters as "Songs (*.mid *.mp3)"; the start folder may be empty. */
QString openFile(QWidget *parent, const QString &title, const QString &start,
                 const QStringList &filters);
QStringList openFiles(QWidget *parent, const QString &title, const QString &start,
                      const QStringList &filters);

struct Saving {
    QString title;
    QString start; ///< a folder, may be empty
    QStringList filters;
    QString suffix; ///< added to a name without one
    QString name;   ///< that is suggested, may be empty
};
struct SavingChoice {
    QString path;
    QString filter; ///< one of the filters
};

/** A file to be written; the user was asked when it exists. */
SavingChoice saveFile(QWidget *parent, const Saving &saving);

QString folder(QWidget *parent, const QString &title, const QString &start);

/**
 * A folder on a memory: begins at the memory used last, and where that is not mounted at the start
 * folder.
 */
QString memoryFolder(QWidget *parent, const QString &title, const QString &start);

/** Keeps the memory that the folder lies on, if it lies on one, as the one used last. */
void keepMemoryOf(const QString &folder);

} // namespace filechooser
