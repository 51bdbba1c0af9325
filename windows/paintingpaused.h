// Keeps a widget from painting while much of it changes at once.
#pragma once

#include <QWidget>

/** The widget is not repainted while this object lives, and then shows all changes together. */
class PaintingPaused
{
public:
    explicit PaintingPaused(QWidget *widget)
        : m_widget(widget)
        , m_before(widget->updatesEnabled())
    {
        m_widget->setUpdatesEnabled(false);
    }
    ~PaintingPaused() { m_widget->setUpdatesEnabled(m_before); }
    Q_DISABLE_COPY_MOVE(PaintingPaused)

private:
    QWidget *const m_widget;
    const bool m_before;
};
