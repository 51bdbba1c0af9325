#include "windows/helpdialog.h"

#include "library/settings.h"
#include "windows/translation.h"

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
    const QString language = store.value(settings::language, translation::german).toString();
    QFile page(language == translation::german ? QStringLiteral(":/help/quorvane_help_de.html")
                                               : QStringLiteral(":/help/quorvane_help_en.html"));
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
