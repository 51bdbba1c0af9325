#include "app/actiongate.h"

#include "windows/busystate.h"

#include <QAction>

namespace
{

bool isEnabled(const QObject *action)
{
    return action->property("enabled").toBool();
}

void setEnabled(QObject *action, bool enabled)
{
    action->setProperty("enabled", enabled);
}

} // namespace

ActionGate::ActionGate(QWidget *window, const BusyState &busy)
    : QObject(window)
    , m_window(window)
    , m_busy(busy)
{
    connect(&m_busy, &BusyState::began, this, &ActionGate::close);
    connect(&m_busy, &BusyState::ended, this, &ActionGate::open);
}

void ActionGate::add(QObject *action)
{
    m_wanted.insert(action, isEnabled(action));
}

void ActionGate::setWanted(QObject *action, bool wanted)
{
    m_wanted.insert(action, wanted);
    setEnabled(action, wanted && !m_busy);
}

bool ActionGate::isWanted(QObject *action) const
{
    return m_busy ? m_wanted.value(action) : isEnabled(action);
}

void ActionGate::close()
{
    m_focusBefore = m_window->focusWidget();
    for (auto action = m_wanted.begin(); action != m_wanted.end(); ++action)
        action.value() = isEnabled(action.key());
    for (auto action = m_wanted.cbegin(); action != m_wanted.cend(); ++action)
        setEnabled(action.key(), false);
    m_focusSince = m_window->focusWidget();
}

void ActionGate::open()
{
    for (auto action = m_wanted.cbegin(); action != m_wanted.cend(); ++action)
        setEnabled(action.key(), action.value());
    if (m_focusBefore != nullptr && m_focusBefore != m_focusSince && m_focusBefore->isEnabled() &&
        m_window->focusWidget() == m_focusSince)
        m_focusBefore->setFocus();
}
