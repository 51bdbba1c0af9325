#include "app/buttonwords.h"

#include <QEvent>
#include <QToolButton>

#include <utility>

ButtonWords::ButtonWords(QWidget *place, QList<QToolButton *> buttons)
    : QObject(place)
    , m_place(place)
    , m_buttons(std::move(buttons))
{
    m_place->installEventFilter(this);
}

bool ButtonWords::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        fit();
    return QObject::eventFilter(watched, event);
}

void ButtonWords::fit()
{
    show(true);
    if (m_place->minimumSizeHint().height() > m_place->height())
        show(false);
}

void ButtonWords::show(bool hasWords)
{
    for (QToolButton *button : m_buttons)
        button->setToolButtonStyle(hasWords ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
}
