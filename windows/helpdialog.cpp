#include "windows/helpdialog.h"

#include "library/branding.h"
#include "library/settings.h"

#include "ui_helpdialog.h"

#include <QEvent>
#include <QFile>
#include <QKeyEvent>
#include <QPushButton>
#include <QSettings>

HelpDialog::HelpDialog(QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::HelpDialog)
{
    ui->setupUi(this);
    setWindowTitle(tr("Aiuto"));
    // Return in the search field goes to the next hit.
    ui->buttonBox->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(ui->searchLineEdit, &QLineEdit::textChanged, this, [this] { find(Direction::Here); });
    connect(ui->nextPushButton, &QPushButton::clicked, this, [this] { find(Direction::Next); });
    connect(ui->previousPushButton, &QPushButton::clicked, this,
            [this] { find(Direction::Previous); });
    loadHelp();
    find(Direction::Here);
    ui->textEdit->setFocus();
}

HelpDialog::~HelpDialog() = default;

void HelpDialog::loadHelp()
{
    const QSettings store(settings::organisation, settings::application);
    const QString language = store.value(settings::language, branding().firstLanguage()).toString();
    QFile page(branding().helpPage(language));
    if (!page.open(QIODevice::ReadOnly))
        return;
    ui->textEdit->setSearchPaths(branding().helpPicturePaths(language));
    ui->textEdit->setHtml(QString::fromUtf8(page.readAll()));
}

void HelpDialog::showSection(const QString &section)
{
    ui->textEdit->scrollToAnchor(section);
}

void HelpDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    setWindowTitle(tr("Aiuto"));
    loadHelp();
    find(Direction::Here);
}

void HelpDialog::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isBack = (event->modifiers() & Qt::ShiftModifier) != 0;
    if (event->matches(QKeySequence::Find)) {
        ui->searchLineEdit->setFocus();
        ui->searchLineEdit->selectAll();
    } else if (event->key() == Qt::Key_F3 || (isReturn && ui->searchLineEdit->hasFocus())) {
        find(isBack ? Direction::Previous : Direction::Next);
    } else {
        QDialog::keyPressEvent(event);
    }
}

/** Marks a hit, from the place of the last one on; behind the last hit stands the first. */
void HelpDialog::find(Direction direction)
{
    const QString sought = ui->searchLineEdit->text();
    ui->searchLabel->setVisible(!sought.isEmpty());
    ui->previousPushButton->setEnabled(!sought.isEmpty());
    ui->nextPushButton->setEnabled(!sought.isEmpty());
    QTextCursor from = ui->textEdit->textCursor();
    if (sought.isEmpty()) {
        from.clearSelection();
        ui->textEdit->setTextCursor(from);
        return;
    }
    // A longer word may stand where the shorter one was found.
    if (direction == Direction::Here)
        from.setPosition(from.selectionStart());
    const bool isBack = direction == Direction::Previous;
    const QTextDocument &page = *ui->textEdit->document();
    const auto flags = isBack ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    QTextCursor hit = page.find(sought, from, flags);
    if (hit.isNull()) {
        QTextCursor other(ui->textEdit->document());
        other.movePosition(isBack ? QTextCursor::End : QTextCursor::Start);
        hit = page.find(sought, other, flags);
    }
    if (hit.isNull()) {
        from.clearSelection(); // the page stays where it is
        hit = from;
    }
    ui->textEdit->setTextCursor(hit);
    ui->textEdit->ensureCursorVisible();
    tellHit(hit);
}

/** Says which of the hits is marked, or that there is none. */
void HelpDialog::tellHit(const QTextCursor &hit)
{
    if (!hit.hasSelection()) {
        ui->searchLabel->setText(tr("Nessun risultato: prova un'altra parola."));
        return;
    }
    const QString sought = ui->searchLineEdit->text();
    const QTextDocument &page = *ui->textEdit->document();
    int number = 0;
    int hits = 0;
    for (QTextCursor one = page.find(sought); !one.isNull(); one = page.find(sought, one)) {
        ++hits;
        if (one.selectionStart() <= hit.selectionStart())
            number = hits;
    }
    ui->searchLabel->setText(tr("Risultato %1 di %2").arg(number).arg(hits));
}
