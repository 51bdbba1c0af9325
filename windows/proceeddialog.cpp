#include "windows/proceeddialog.h"

#include "windows/roomfortext.h"

#include "ui_proceeddialog.h"

#include <QEvent>

ProceedDialog::ProceedDialog(QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::ProceedDialog)
{
    ui->setupUi(this);
    new RoomForText(this);
    showCounts();
}

ProceedDialog::~ProceedDialog() = default;

void ProceedDialog::setFilesCount(int valid, int kravo, int bad)
{
    m_valid = valid;
    m_kravo = kravo;
    m_bad = bad;
    showCounts();
}

bool ProceedDialog::getShowAgainValue() const
{
    return !ui->checkBoxShowAgain->isChecked();
}

void ProceedDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    showCounts();
}

void ProceedDialog::showCounts()
{
    // "esaminti" is the key under which the translations hold this text.
    ui->msgLabel->setText(
        tr("Sono stati esaminti %1 files, trovate %2 songs di cui %3 di (c)K-Ravo")
            .arg(m_valid + m_bad)
            .arg(m_valid)
            .arg(m_kravo));
}
