// The list of the files that the last import could not read.
#pragma once

#include "library/unreadablefile.h"
#include "windows/filelistdialog.h"

#include <QList>

/** Tells the reason of each file in words. */
class UnreadableFilesDialog : public FileListDialog
{
    Q_OBJECT

public:
    explicit UnreadableFilesDialog(const QList<UnreadableFile> &files, QWidget *parent = nullptr);

private:
    static QList<Line> lines(const QList<UnreadableFile> &files);
};
