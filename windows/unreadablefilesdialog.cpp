#include "windows/unreadablefilesdialog.h"

UnreadableFilesDialog::UnreadableFilesDialog(const QList<UnreadableFile> &files, QWidget *parent)
    : FileListDialog(tr("File non leggibili"),
                     tr("Questi file non sono stati inseriti &nella lista:"), lines(files), parent)
{
}

QList<FileListDialog::Line> UnreadableFilesDialog::lines(const QList<UnreadableFile> &files)
{
    QList<Line> lines;
    for (const UnreadableFile &file : files)
        lines.append({file.path, file.reasonText()});
    return lines;
}
