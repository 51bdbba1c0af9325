#include "windows/aboutdialog.h"

#include "library/branding.h"
#include "library/version.h"
#include "windows/librariesdialog.h"
#include "windows/roomfortext.h"

#include "ui_aboutdialog.h"

#include <QDate>
#include <QEvent>
#include <QLocale>
#include <QPushButton>

namespace
{

/** A rich-text document around the text, up to and including the opening of its one paragraph. */
QString richText(const QString &font, int points, const QString &text)
{
    return QStringLiteral("<html><head><meta name=\"qrichtext\" content=\"1\" />"
                          "<style type=\"text/css\">p, li { white-space: pre-wrap; }</style></head>"
                          "<body style=\"font-family:'%1'; font-size:%2pt; font-weight:400; "
                          "font-style:normal;\"><p>%3</p></body></html>")
        .arg(font, QString::number(points), text);
}

/** The build date as it is written in the language in use; empty if the build's own text is no
 * date. */
QString localBuildDate()
{
    // The compiler pads a one-digit day with a blank and writes the month in English.
    const QString text = QString::fromLatin1(version::buildDate).simplified();
    const QDate date = QLocale(QStringLiteral("en_US")).toDate(text, QStringLiteral("MMM d yyyy"));
    return QLocale().toString(date, QLocale::ShortFormat);
}

} // namespace

AboutDialog::AboutDialog(QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::AboutDialog)
{
    ui->setupUi(this);
    new RoomForText(this);
    ui->logoLabel->setStyleSheet(QStringLiteral("image: url(%1);").arg(branding().aboutLogo));
    connect(ui->librariesPushButton, &QPushButton::clicked, this,
            [this] { LibrariesDialog(this).exec(); });
    showTexts();
}

AboutDialog::~AboutDialog() = default;

void AboutDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    showTexts();
}

void AboutDialog::showTexts()
{
    setWindowTitle(tr("Informazioni"));
    ui->versionLabel->setText(
        richText(QStringLiteral("Sans Serif"), 12,
                 tr("Version:&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp; %1<br/>Build date: %2<br/>")
                     .arg(QString::fromLatin1(version::number), localBuildDate())));

    const QString notice =
        tr("(c) 2011 K-Ravo. Tutti i diritti riservati.<br/>"
           "I nomi e i marchi citati appartengono ai rispettivi proprietari.<br/>"
           "<a href=\"https://kravo.example/\">https://kravo.example/</a>");
    const QString support =
        tr("Assistenza:") + QStringLiteral(" <a href=\"mailto:support@kravo.example\">"
                                           "support@kravo.example</a>");
    ui->infoLabel->setText(richText(QStringLiteral("Bitstream Vera Sans"), 10,
                                    notice + QStringLiteral("<br/><br/>") + support));
}
