// The words below the pictures of the large buttons give way where the window is low.
#pragma once

#include <QList>
#include <QObject>

class QToolButton;
class QWidget;

class ButtonWords : public QObject
{
    Q_OBJECT

public:
    /** The place is where the buttons stand: when it becomes too low for its layout, they change.
     */
    ButtonWords(QWidget *place, QList<QToolButton *> buttons);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fit();
    void show(bool hasWords);

    QWidget *const m_place;
    const QList<QToolButton *> m_buttons;
};
