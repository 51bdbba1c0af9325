#include "windows/helpdialog.h"

#include "library/branding.h"
#include "library/settings.h"

#include "ui_helpdialog.h"

#include <QEvent>
#include <QFile>
#include <QSettings>

HelpDialog::HelpDialog(QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::HelpDialog)
{
    ui->setupUi(this);
    setWindowTitle(tr("Aiuto"));
    loadHelp();
}

HelpDialog::~HelpDialog() = default;

void HelpDialog::loadHelp()
{
    const QSettings store(settings::organisation, settings::application);
    QFile page(branding().helpPage(
        store.value(settings::language, branding().firstLanguage()).toString()));
    if (page.open(QIODevice::ReadOnly))
        ui->textEdit->setHtml(QString::fromUtf8(page.readAll()));
}

void HelpDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    setWindowTitle(tr("Aiuto"));
    loadHelp();
}
