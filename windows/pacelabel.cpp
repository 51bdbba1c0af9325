#include "windows/pacelabel.h"

#include "library/jobpace.h"

PaceLabel::PaceLabel(const QString &text)
    : QLabel(text)
    , m_pace(new QLabel(this))
{
    setAlignment(Qt::AlignCenter);
    m_pace->setObjectName(QStringLiteral("paceLabel"));
    m_pace->setAlignment(Qt::AlignCenter);
    m_pace->setTextFormat(Qt::PlainText);
    setContentsMargins(0, 0, 0, m_pace->fontMetrics().height());
}

void PaceLabel::setPace(const QString &pace)
{
    m_pace->setText(pace);
}

QSize PaceLabel::sizeHint() const
{
    constexpr double fast = 8888;
    constexpr double slow = 119 * 60;
    const int widest = m_pace->fontMetrics().horizontalAdvance(JobPace::text(fast, slow));
    return QLabel::sizeHint().expandedTo(QSize(widest, 0));
}

void PaceLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    const int line = contentsMargins().bottom();
    m_pace->setGeometry(0, height() - line, width(), line);
}
