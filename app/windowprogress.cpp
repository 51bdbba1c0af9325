#include "app/windowprogress.h"

OpenProgress WindowProgress::open()
{
    return [this](const QString &title, const QString &label, int maximum) {
        return std::make_unique<ShownProgress>(m_shown, title, label, maximum, m_window);
    };
}

Progress &WindowProgress::shown()
{
    if (m_shown != nullptr)
        return *m_shown;
    return m_none;
}
