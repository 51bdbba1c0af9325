#include "windows/backupdialog.h"

#include "windows/filechooser.h"
#include "windows/roomfortext.h"

#include "ui_backupdialog.h"

#include <QCloseEvent>
#include <QEvent>

BackupDialog::BackupDialog(QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::BackupDialog)
{
    ui->setupUi(this);
    new RoomForText(this);
    ui->doBackupPushButton->setEnabled(false);
    ui->browsePushButton->setFocus();
    showTexts();
}

BackupDialog::~BackupDialog() = default;

LibraryBackup::Wish BackupDialog::wish() const
{
    switch (result()) {
    case DoBackup:
        return LibraryBackup::Wish::Backup;
    case ContinueWithoutBackup:
        return LibraryBackup::Wish::NoBackup;
    default:
        return LibraryBackup::Wish::Cancel;
    }
}

QString BackupDialog::directory() const
{
    return m_directory;
}

void BackupDialog::closeEvent(QCloseEvent *event)
{
    done(Cancel);
    event->accept();
}

void BackupDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    showTexts();
}

void BackupDialog::on_browsePushButton_clicked()
{
    const QString chosen =
        filechooser::folder(this, tr("Scegli cartella"), QStringLiteral("/home"));
    if (chosen.isEmpty())
        return;
    m_directory = chosen;
    ui->directoryLineEdit->setText(m_directory);
    ui->doBackupPushButton->setEnabled(true);
}

void BackupDialog::on_abortPushButton_clicked()
{
    done(Cancel);
}

void BackupDialog::on_exitPushButton_clicked()
{
    done(ContinueWithoutBackup);
}

void BackupDialog::on_doBackupPushButton_clicked()
{
    done(DoBackup);
}

void BackupDialog::showTexts()
{
    ui->backupLabel->setText(
        tr("Si consiglia di effettuare un backup della libreria prima di procedere con "
           "l'aggiornamento.\nSelezionare una cartella di destinazione per il backup oppure "
           "premere 'Prosegui senza backup'."));
}
