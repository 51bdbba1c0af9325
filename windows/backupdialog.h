// Recommends a backup before song files are rewritten, and asks where to put it.
#pragma once

#include "library/librarybackup.h"

#include <QDialog>
#include <QScopedPointer>
#include <QString>

QT_BEGIN_NAMESPACE
namespace Ui
{
class BackupDialog;
}
QT_END_NAMESPACE

/** exec() returns one of the choices below; closing the dialog counts as cancelling. */
class BackupDialog : public QDialog
{
    Q_OBJECT

public:
    enum Choice { Cancel = 0, DoBackup = 1, ContinueWithoutBackup = 2 };

    explicit BackupDialog(QWidget *parent = nullptr);
    ~BackupDialog() override;

    /** The choice that the button which ended the dialog stands for. */
    LibraryBackup::Wish wish() const;

    /** The folder that was chosen; empty until then. */
    QString directory() const;

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private slots:
    void on_browsePushButton_clicked();
    void on_abortPushButton_clicked();
    void on_exitPushButton_clicked();
    void on_doBackupPushButton_clicked();

private:
    void showTexts();

    const QScopedPointer<Ui::BackupDialog> ui;
    QString m_directory;
};
