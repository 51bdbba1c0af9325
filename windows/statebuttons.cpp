#include "windows/statebuttons.h"

#include "windows/songstates.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QStyle>
#include <QToolButton>

StateButtons::StateButtons(QWidget *parent)
    : QWidget(parent)
{
    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    for (int status = 0; status < count; ++status) {
        auto *const button = new QToolButton(this);
        button->setObjectName(QStringLiteral("stateToolButton%1").arg(status));
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setIcon(SongStates::icon(SongStates::known(status)));
        const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
        button->setIconSize(QSize(side, side));
        connect(button, &QToolButton::toggled, this, [this, button](bool isChecked) {
            QFont emphasised = font(); // some styles hardly show that a flat button is pressed
            emphasised.setBold(isChecked);
            button->setFont(emphasised);
            updateGeometry();
            showTexts();
            emit chosenChanged();
        });
        row->addWidget(button);
        m_buttons[static_cast<size_t>(status)] = button;
    }
    row->addStretch();
}

void StateButtons::setNumbers(const Numbers &numbers, const QStringList &texts)
{
    m_full.clear();
    m_short.clear();
    for (int status = 0; status < count; ++status) {
        const int number = numbers[static_cast<size_t>(status)];
        m_full.append(texts.value(status).arg(number));
        m_short.append(QString::number(number));
        QToolButton *const button = m_buttons[static_cast<size_t>(status)];
        button->setAccessibleName(m_full.constLast());
        button->setToolTip(SongStates::explanation(SongStates::known(status)) + QLatin1Char('\n') +
                           tr("Premi per vedere solo queste song"));
    }
    showTexts();
    updateGeometry();
}

QSet<int> StateButtons::chosen() const
{
    QSet<int> states;
    for (int status = 0; status < count; ++status) {
        if (m_buttons[static_cast<size_t>(status)]->isChecked())
            states.insert(status);
    }
    return states;
}

void StateButtons::clear()
{
    const bool changes = !chosen().isEmpty();
    {
        const QSignalBlocker once(this);
        for (QToolButton *const button : m_buttons)
            button->setChecked(false);
    }
    if (changes)
        emit chosenChanged();
}

QSize StateButtons::sizeHint() const
{
    return {widthOf(m_full), QWidget::sizeHint().height()};
}

QSize StateButtons::minimumSizeHint() const
{
    return {widthOf(m_short), QWidget::minimumSizeHint().height()};
}

void StateButtons::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    showTexts();
}

void StateButtons::showTexts()
{
    const QStringList &texts = width() >= widthOf(m_full) ? m_full : m_short;
    for (int status = 0; status < count; ++status) {
        QToolButton *const button = m_buttons[static_cast<size_t>(status)];
        if (button->text() != texts.value(status))
            button->setText(texts.value(status));
    }
}

/** What the buttons would need for these texts. */
int StateButtons::widthOf(const QStringList &texts) const
{
    int width = layout()->spacing() * (count - 1);
    for (int status = 0; status < count; ++status) {
        const QToolButton *const button = m_buttons[static_cast<size_t>(status)];
        const int now = button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width();
        const int then =
            button->fontMetrics().size(Qt::TextShowMnemonic, texts.value(status)).width();
        width += button->sizeHint().width() - now + then;
    }
    return width;
}
