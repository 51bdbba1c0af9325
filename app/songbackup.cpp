#include "app/songbackup.h"

#include "app/windowprogress.h"
#include "devindex/filecopier.h"
#include "devindex/shownnames.h"
#include "windows/backupdialog.h"
#include "windows/confirmation.h"

#include <QMessageBox>

SongBackup::SongBackup(QWidget *window, WindowProgress &progress)
    : m_window(window)
    , m_progress(progress)
{
}

bool SongBackup::suggest(const QStringList &files)
{
    m_failed.clear();
    const auto copyAll = [this, &files](const QString &destination, int &copied) {
        return copy(files, destination, copied);
    };
    const auto tell = [this](bool succeeded) { report(succeeded); };
    return LibraryBackup(&SongBackup::ask, copyAll, tell, m_progress.open())
        .suggest(static_cast<int>(files.size()));
}

LibraryBackup::Choice SongBackup::ask()
{
    BackupDialog dialog;
    dialog.exec();
    return {dialog.wish(), dialog.directory()};
}

bool SongBackup::copy(const QStringList &files, const QString &destination, int &copied)
{
    const ShownNames names(files);
    const auto copyList = [this, &names](const QStringList &list, const QString &folder,
                                         int &arrived, Progress &progress) {
        FileCopier copier(&confirmation::askToReplace);
        const bool complete = copier.copyFiles(list, folder, arrived, progress);
        m_failed += copier.report().failedLines(names);
        return complete;
    };
    return LibraryBackup::copyFiles(files, destination, copied, m_progress.shown(), copyList);
}

void SongBackup::report(bool succeeded)
{
    if (succeeded) {
        QMessageBox::information(m_window, tr("Backup"), tr("Backup eseguito correttamente"));
        return;
    }
    QMessageBox box(QMessageBox::Critical, tr("Backup"), tr("Backup FALLITO !!!"), QMessageBox::Ok,
                    m_window);
    box.setDetailedText(m_failed.join(QLatin1Char('\n')));
    box.exec();
}
