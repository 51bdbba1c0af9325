// Knows whether a workflow runs, and signals when the first one begins and the last one has ended.
#pragma once

#include <QObject>

/** Busy as long as one BusyGuard lives; guards can be nested. */
class BusyState : public QObject
{
    Q_OBJECT

public:
    explicit operator bool() const { return m_guards > 0; }

signals:
    /** The first workflow starts. */
    void began();

    /** Nothing runs any more. */
    void ended();

private:
    friend class BusyGuard;

    int m_guards = 0;
};

/** Marks the time during which a workflow runs or a dialog is open. */
class BusyGuard
{
public:
    explicit BusyGuard(BusyState &state)
        : m_state(state)
    {
        if (++m_state.m_guards == 1)
            emit m_state.began();
    }
    ~BusyGuard()
    {
        if (--m_state.m_guards == 0)
            emit m_state.ended();
    }
    Q_DISABLE_COPY_MOVE(BusyGuard)

private:
    BusyState &m_state;
};
