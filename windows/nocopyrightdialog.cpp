#include "windows/nocopyrightdialog.h"

#include "windows/roomfortext.h"

#include "ui_nocopyrightdialog.h"

#include <QEvent>
#include <QScreen>

NoCopyrightDialog::NoCopyrightDialog(QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::NoCopyrightDialog)
{
    ui->setupUi(this);
    new RoomForText(this);
}

NoCopyrightDialog::~NoCopyrightDialog() = default;

void NoCopyrightDialog::setFilename(const QString &fileName)
{
    m_fileName = fileName;
    ui->fileNameLabel->setText(fileName);
    // The whole path is shown where the screen has room for it.
    const int widest = screen()->availableGeometry().width() * 2 / 3;
    resize(qMax(width(), qMin(sizeHint().width(), widest)), height());
}

void NoCopyrightDialog::setMessage(const QString &message)
{
    m_message = message;
    ui->label_2->setText(message);
}

void NoCopyrightDialog::setYesNoOnly(bool yesNoOnly)
{
    m_yesNoOnly = yesNoOnly;
    ui->yesAllPushButton->setVisible(!m_yesNoOnly);
    ui->noAllPushButton->setVisible(!m_yesNoOnly);
}

void NoCopyrightDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    if (!m_fileName.isNull())
        ui->fileNameLabel->setText(m_fileName);
    if (!m_message.isNull())
        ui->label_2->setText(m_message);
}

void NoCopyrightDialog::on_yesPushButton_clicked()
{
    done(Yes);
}

void NoCopyrightDialog::on_yesAllPushButton_clicked()
{
    done(YesAll);
}

void NoCopyrightDialog::on_noPushButton_clicked()
{
    done(No);
}

void NoCopyrightDialog::on_noAllPushButton_clicked()
{
    done(NoAll);
}
