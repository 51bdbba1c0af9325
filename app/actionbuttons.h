// The three large buttons, and when they can be pressed.
#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
namespace Ui
{
class MainWindow;
}
QT_END_NAMESPACE

class ActionGate;

/**
 * Synchronising and transferring are possible only after an import, and not twice in a row where
 * that would do nothing. Entries of the menu do the same as the buttons.
 */
class ActionButtons
{
public:
    /** Both must outlive the object; the form is not set up yet. */
    ActionButtons(const Ui::MainWindow &form, ActionGate &gate);

    /** Adds all that starts work to the gate: it cannot be started while other work runs. */
    void setUp();

    /** Disables synchronising and transferring. */
    void disable();

    /**
     * Disables all that needs the table of songs, when there is none. Choosing songs stays enabled:
     * it is answered with the reason.
     */
    void disableForGood();

    void setSynchronise(bool enabled);
    void setTransfer(bool enabled);

    /** Whether synchronising is possible when nothing runs. */
    bool canSynchronise() const;

private:
    const Ui::MainWindow &m_form;
    ActionGate &m_gate;
};
