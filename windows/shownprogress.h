// The progress dialogs of the main window's workflows.
#pragma once

#include "windows/progresswindow.h"

#include <QElapsedTimer>
#include <QTimer>

/**
 * Sets a pointer to itself while it is on the screen. Steps are shown only some times a second:
 * painting the bar for each of thousands of files would take longer than the work on the files. A
 * step that is held back is shown when that time is over and events are processed; the last step of
 * the job is shown at once.
 */
class ShownProgress : public ProgressWindow
{
public:
    /** The pointer is set to this progress until it closes, and then to the progress before it. */
    ShownProgress(Progress *&shown, const QString &title, const QString &label, int maximum,
                  QWidget *parent);
    ~ShownProgress() override;

    void setValue(int done) override;
    void updateProgress(int done) override;
    void catchUp() override;

private:
    void take(int done, bool inWords);
    void showLast();

    int m_done = 0;
    bool m_inWords = false;     ///< the last step has to be shown in words too
    QElapsedTimer m_sinceShown; ///< not valid before the first step is shown
    QTimer m_due;               ///< runs while a step waits
    Progress *&m_shown;
    Progress *const m_before;
};

/** Used where a workflow runs without a progress dialog. */
class NoProgress : public Progress
{
public:
    void setMaximum(int) override {}
    void setValue(int) override {}
    void updateProgress(int) override {}
    bool wasCanceled() const override { return false; }
};
