// The progress dialogs of the main window's workflows.
#pragma once

#include "windows/progresswindow.h"

#include <QElapsedTimer>
#include <QTimer>

/**
 * Says where it can be found as long as it is on screen. Steps are shown some times a second only:
 * painting the bar for each of thousands of files would take longer than the files do. A step that
 * has to wait is shown as soon as its time has come and events are processed; the last one of the
 * job is shown at once.
 */
class ShownProgress : public ProgressWindow
{
public:
    /** The pointer leads to this progress until it closes, and then to the one before. */
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
    bool m_inWords = false;     ///< the last step is to be labelled too
    QElapsedTimer m_sinceShown; ///< not valid before the first step is shown
    QTimer m_due;               ///< runs while a step waits
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
