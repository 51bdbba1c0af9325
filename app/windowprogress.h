// The progress dialogs over a window.
#pragma once

#include "windows/shownprogress.h"

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/** Opens the dialogs and knows which one is on screen. */
class WindowProgress
{
public:
    /** The window, which is the parent of the dialogs, must outlive the object. */
    explicit WindowProgress(QWidget *window)
        : m_window(window)
    {
    }

    /** Opens dialogs; the object must outlive it and them. */
    OpenProgress open();

    /** The progress that is on screen, or one that shows nothing. */
    Progress &shown();

private:
    QWidget *const m_window;
    Progress *m_shown = nullptr;
    NoProgress m_none;
};
