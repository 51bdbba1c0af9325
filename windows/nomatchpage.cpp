#include "windows/nomatchpage.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

NoMatchPage::NoMatchPage(QWidget *parent)
    : QFrame(parent)
    , m_title(new QLabel(this))
    , m_text(new QLabel(this))
    , m_clear(new QPushButton(this))
{
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    m_title->setObjectName(QStringLiteral("noMatchLabel"));
    m_clear->setObjectName(QStringLiteral("clearFilterPushButton"));
    QFont bold = m_title->font();
    bold.setBold(true);
    m_title->setFont(bold);
    for (QLabel *const label : {m_title, m_text})
        label->setAlignment(Qt::AlignCenter);
    // The page takes the room that the list has, and asks for none.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    auto *const rows = new QVBoxLayout(this);
    rows->addStretch();
    rows->addWidget(m_title);
    rows->addWidget(m_text);
    rows->addWidget(m_clear, 0, Qt::AlignHCenter);
    rows->addStretch();
    setFocusProxy(m_clear);
    connect(m_clear, &QPushButton::clicked, this, &NoMatchPage::clearWanted);
    setTexts();
}

void NoMatchPage::setSongs(int songs)
{
    if (songs == m_songs)
        return;
    m_songs = songs;
    setTexts();
}

void NoMatchPage::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        setTexts();
}

void NoMatchPage::setTexts()
{
    m_title->setText(tr("Nessuna song corrisponde al filtro"));
    m_text->setText(tr("%n song nascoste", nullptr, m_songs));
    m_clear->setText(tr("Togli il filt&ro"));
}
