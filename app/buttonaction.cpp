#include "app/buttonaction.h"

#include <QAction>
#include <QHelpEvent>
#include <QToolButton>
#include <QToolTip>

ButtonAction::ButtonAction(QAction *action, QToolButton *button)
    : QObject(button)
    , m_action(action)
    , m_button(button)
{
    m_action->setIcon(button->icon());
    m_action->setEnabled(button->isEnabled());
    connect(m_action, &QAction::triggered, m_button, [button] { button->click(); });
    m_button->installEventFilter(this);
}

bool ButtonAction::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_button && event->type() == QEvent::EnabledChange)
        m_action->setEnabled(m_button->isEnabled());
    if (watched == m_button && event->type() == QEvent::ToolTip)
        return showToolTip(static_cast<const QHelpEvent *>(event)->globalPos());
    return QObject::eventFilter(watched, event);
}

bool ButtonAction::showToolTip(const QPoint &globalPosition) const
{
    const QString keys = m_action->shortcut().toString(QKeySequence::NativeText);
    QToolTip::showText(globalPosition, QStringLiteral("%1 (%2)").arg(m_button->toolTip(), keys),
                       m_button);
    return true;
}
