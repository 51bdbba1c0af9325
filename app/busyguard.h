// Marks the time during which a workflow runs.
#pragma once

#include <QtGlobal>

/** Sets the flag while it lives and then puts its old value back, so that guards can be nested. */
class BusyGuard
{
public:
    explicit BusyGuard(bool &busy)
        : m_busy(busy)
        , m_before(busy)
    {
        m_busy = true;
    }
    ~BusyGuard() { m_busy = m_before; }
    Q_DISABLE_COPY_MOVE(BusyGuard)

private:
    bool &m_busy;
    const bool m_before;
};
