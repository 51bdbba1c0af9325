// The progress dialogs of the main window's workflows.
#pragma once

#include "windows/progresswindow.h"

#include <QElapsedTimer>

/**
 * Says where it can be found as long as it is on screen. Steps are shown some times a second only:
 * painting the bar for each of thousands of files would take longer than the files do. The last
 * step is always shown.
 */
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

    void setValue(int done) override
    {
        if (isDue(done))
            ProgressWindow::setValue(done);
    }
    void updateProgress(int done) override
    {
        if (isDue(done))
            ProgressWindow::updateProgress(done);
    }

private:
    bool isDue(int done)
    {
        if (done < dialog().maximum() && m_sinceShown.isValid() &&
            !m_sinceShown.hasExpired(pauseMilliseconds))
            return false;
        m_sinceShown.start();
        return true;
    }

    static constexpr int pauseMilliseconds = 40;

    QElapsedTimer m_sinceShown;
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
