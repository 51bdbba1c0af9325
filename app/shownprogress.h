// The progress dialogs of the main window's workflows.
#pragma once

#include "library/progresswindow.h"

/** Says where it can be found as long as it is on screen. */
class ShownProgress : public ProgressWindow
{
public:
    /** The pointer leads to this progress until it closes, and then to the one before. */
    ShownProgress(Progress *&shown, const QString &title, const QString &label, int maximum,
                  QWidget *parent)
        : ProgressWindow(title, label, maximum, parent)
        , m_shown(shown)
        , m_before(shown)
    {
        m_shown = this;
    }
    ~ShownProgress() override { m_shown = m_before; }

private:
    Progress *&m_shown;
    Progress *const m_before;
};

/** Stands in where a workflow runs while no progress dialog is on screen. */
class NoProgress : public Progress
{
public:
    void setMaximum(int) override {}
    void setValue(int) override {}
    void updateProgress(int) override {}
    bool wasCanceled() const override { return false; }
};
