// Disables the menu entries and buttons that start work while other work runs.
#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QWidget>

class BusyState;

/**
 * An added menu entry or button is enabled when setWanted() asked for it and no work runs. A button
 * that has the keyboard's focus when work begins has it again afterwards, unless the user has put
 * it elsewhere.
 */
class ActionGate : public QObject
{
    Q_OBJECT

public:
    /** The window whose buttons are added owns the object. */
    ActionGate(QWidget *window, const BusyState &busy);

    /** Takes a QAction or a QWidget, which must outlive the object; not while work runs. */
    void add(QObject *action);

    /** Enables or disables what was added; while work runs, from its end on. */
    void setWanted(QObject *action, bool wanted);

    /** True when the menu entry or button has to be enabled while no work runs. */
    bool isWanted(QObject *action) const;

private:
    void close();
    void open();

    QWidget *const m_window;
    const BusyState &m_busy;
    QHash<QObject *, bool> m_wanted; ///< kept while work runs
    QPointer<QWidget> m_focusBefore; ///< what lost the focus when it was disabled
    QPointer<QWidget> m_focusSince;  ///< what got the focus instead
};
