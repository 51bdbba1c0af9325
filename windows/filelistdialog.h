// A list of files with a text about each.
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

/** Shows each file's name and the text about it; the whole path is the line's tool tip. */
class FileListDialog : public QDialog
{
    Q_OBJECT

public:
    struct Line {
        QString path;
        QString text;
    };

    /**
     * The caption stands above the list and may hold a mnemonic, which moves the focus to the list.
     */
    FileListDialog(const QString &title, const QString &caption, const QList<Line> &lines,
                   QWidget *parent = nullptr);
    ~FileListDialog() override;

private:
    const QScopedPointer<Ui::FileListDialog> ui;
};
