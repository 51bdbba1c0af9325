#include "windows/renamesongdialog.h"

#include "devindex/songname.h"
#include "windows/roomfortext.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

RenameSongDialog::RenameSongDialog(const QString &root, const QString &path, QWidget *parent)
    : QDialog(parent)
    , m_root(root)
    , m_path(path)
    , m_name(new QLineEdit(this))
    , m_reason(new QLabel(this))
{
    const QFileInfo song(path);
    m_suffix = QLatin1Char('.') + song.suffix();
    setWindowTitle(tr("Rinomina song"));
    auto *const caption =
        new QLabel(tr("Nuovo nome, al massimo %n caratteri:", "", SongName::maxLength), this);
    caption->setBuddy(m_name);
    caption->setWordWrap(true);
    m_name->setObjectName(QStringLiteral("nameLineEdit"));
    m_name->setText(song.completeBaseName());
    m_name->selectAll();
    m_reason->setObjectName(QStringLiteral("reasonLabel"));
    m_reason->setTextFormat(Qt::PlainText);
    m_reason->setWordWrap(true);
    // Its lines are kept free, so that nothing moves while the user types.
    m_reason->setMinimumHeight(2 * fontMetrics().lineSpacing());
    m_reason->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto *const nameRow = new QHBoxLayout;
    nameRow->addWidget(m_name);
    nameRow->addWidget(new QLabel(m_suffix, this));
    auto *const buttons = new QDialogButtonBox(this);
    m_rename = buttons->addButton(tr("Rinomina"), QDialogButtonBox::AcceptRole);
    m_rename->setObjectName(QStringLiteral("renamePushButton"));
    buttons->addButton(tr("Annulla"), QDialogButtonBox::RejectRole)
        ->setObjectName(QStringLiteral("cancelPushButton"));
    auto *const rows = new QVBoxLayout(this);
    rows->addWidget(caption);
    rows->addLayout(nameRow);
    rows->addWidget(m_reason);
    rows->addWidget(buttons);
    setMinimumWidth(40 * fontMetrics().averageCharWidth());
    new RoomForText(this);

    connect(m_name, &QLineEdit::textChanged, this, &RenameSongDialog::judge);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    judge();
}

QString RenameSongDialog::newName() const
{
    return m_name->text() + m_suffix;
}

void RenameSongDialog::judge()
{
    const QString reason = SongName::whyNot(m_root, m_path, newName());
    const bool isOldName = newName() == QFileInfo(m_path).fileName();
    m_rename->setEnabled(reason.isEmpty());
    // Nobody has to be told that he has not typed yet.
    m_reason->setText(isOldName ? QString() : reason);
}
