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
        lines.append({file.path, reasonText(file.reason)});
    return lines;
}

QString UnreadableFilesDialog::reasonText(UnreadableFile::Reason reason)
{
    switch (reason) {
    case UnreadableFile::Reason::Missing:
        return tr("Il file non esiste");
    case UnreadableFile::Reason::NoFile:
        return tr("Non è un file normale");
    case UnreadableFile::Reason::Locked:
        return tr("Il file non può essere aperto");
    case UnreadableFile::Reason::Empty:
        return tr("Il file è vuoto");
    case UnreadableFile::Reason::UnknownFormat:
        return tr("Formato non riconosciuto");
    case UnreadableFile::Reason::Damaged:
        break;
    }
    return tr("Il file è danneggiato");
}
