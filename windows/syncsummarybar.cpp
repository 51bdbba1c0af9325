#include "windows/syncsummarybar.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

SyncSummaryBar::SyncSummaryBar(QWidget *parent)
    : QFrame(parent)
    , m_text(new QLabel(this))
    , m_edit(new QPushButton(this))
    , m_add(new QPushButton(this))
    , m_close(new QToolButton(this))
{
    setObjectName(QStringLiteral("syncSummaryBar"));
    setFrameShape(QFrame::StyledPanel);
    m_text->setObjectName(QStringLiteral("syncSummaryLabel"));
    m_text->setWordWrap(true);
    m_edit->setObjectName(QStringLiteral("editUnknownPushButton"));
    m_add->setObjectName(QStringLiteral("addUnknownPushButton"));
    m_close->setObjectName(QStringLiteral("closeSummaryToolButton"));
    m_close->setAutoRaise(true);
    m_close->setFocusPolicy(Qt::StrongFocus);
    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton, nullptr, this));
    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 4, 4);
    row->addWidget(m_text, 1);
    row->addWidget(m_edit);
    row->addWidget(m_add);
    row->addWidget(m_close);
    connect(m_edit, &QPushButton::clicked, this, &SyncSummaryBar::editWanted);
    connect(m_add, &QPushButton::clicked, this, &SyncSummaryBar::addWanted);
    connect(m_close, &QToolButton::clicked, this, &QWidget::hide);
    hide();
}

void SyncSummaryBar::tell(const Result &result)
{
    m_result = result;
    setTexts();
    m_edit->setVisible(result.unknown > 0);
    m_add->setVisible(result.unknown > 0);
    show();
    QAccessibleEvent alert(m_text, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void SyncSummaryBar::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        setTexts();
}

void SyncSummaryBar::setTexts()
{
    QStringList parts{tr("%1 di %2 trovate").arg(m_result.found).arg(m_result.songs)};
    if (m_result.added > 0)
        parts << tr("%1 nel mio catalogo").arg(m_result.added);
    if (m_result.unknown > 0)
        parts << tr("%1 non nel catalogo").arg(m_result.unknown);
    if (m_result.left > 0)
        parts << tr("%1 senza modifiche").arg(m_result.left);
    const int reached = m_result.found + m_result.added + m_result.unknown + m_result.left;
    if (reached < m_result.songs)
        parts << tr("%1 non raggiunte").arg(m_result.songs - reached);
    m_text->setText(parts.join(QLatin1String("; ")));
    m_edit->setText(tr("Modifica&le..."));
    m_add->setText(tr("Aggiungile al mio catalo&go..."));
    m_close->setToolTip(tr("Chiudi"));
    m_close->setAccessibleName(tr("Chiudi"));
}
