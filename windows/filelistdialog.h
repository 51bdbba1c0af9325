// A list of files with something to be said about each.
#pragma once

#include <QDialog>
#include <QList>
#include <QScopedPointer>
#include <QString>

QT_BEGIN_NAMESPACE
namespace Ui
{
class FileListDialog;
}
QT_END_NAMESPACE

/** Shows each file's name and what is said about it; the whole path is the line's tool tip. */
class FileListDialog : public QDialog
{
    Q_OBJECT

public:
    struct Line {
        QString path;
        QString text;
    };

    /** The caption stands above the list and may hold a mnemonic, which leads there. */
    FileListDialog(const QString &title, const QString &caption, const QList<Line> &lines,
                   QWidget *parent = nullptr);
    ~FileListDialog() override;

private:
    const QScopedPointer<Ui::FileListDialog> ui;
};
