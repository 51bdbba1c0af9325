// The list of the files that the last import could not read.
#pragma once

#include "library/unreadablefile.h"

#include <QDialog>
#include <QList>
#include <QScopedPointer>

QT_BEGIN_NAMESPACE
namespace Ui
{
class UnreadableFilesDialog;
}
QT_END_NAMESPACE

/** Shows each file's name and the reason in words; the whole path is the line's tool tip. */
class UnreadableFilesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit UnreadableFilesDialog(const QList<UnreadableFile> &files, QWidget *parent = nullptr);
    ~UnreadableFilesDialog() override;

private:
    static QString reasonText(UnreadableFile::Reason reason);

    const QScopedPointer<Ui::UnreadableFilesDialog> ui;
};
