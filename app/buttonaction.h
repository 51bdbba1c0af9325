// Joins a large tool button and the menu entry that does the same.
#pragma once

#include <QObject>

class QAction;
class QToolButton;

/**
 * The menu entry presses the button, is enabled when the button is and shows its icon. The button's
 * tool tip gains the entry's shortcut when it is shown; the text that is set stays as it is. Both
 * must outlive the object, which the button owns.
 */
class ButtonAction : public QObject
{
    Q_OBJECT

public:
    ButtonAction(QAction *action, QToolButton *button);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool showToolTip(const QPoint &globalPosition) const;

    QAction *const m_action;
    QToolButton *const m_button;
};
