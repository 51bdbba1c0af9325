// The progress dialog of a long job.
#pragma once

#include "library/jobpace.h"
#include "library/progress.h"
#include "windows/longjob.h"

#include <QElapsedTimer>
#include <QProgressDialog>
#include <QString>

class PaceLabel;

/**
 * A window-modal progress dialog that is on screen from its construction to its destruction: it
 * neither waits before it shows nor hides at its maximum or when it is cancelled, so that the main
 * window never takes clicks meanwhile and a cancellation is not forgotten. After some seconds it
 * tells how fast the job goes and how long it still takes.
 */
class ProgressWindow : public Progress
{
public:
    /** Shows the dialog over the parent, with "Interrompi" as the cancel button, at 0 of maximum.
     */
    ProgressWindow(const QString &title, const QString &label, int maximum, QWidget *parent);
    ~ProgressWindow() override;
    Q_DISABLE_COPY_MOVE(ProgressWindow)

    void setMaximum(int steps) override;
    void setValue(int done) override;
    void updateProgress(int done) override;
    bool wasCanceled() const override;

    /** The dialog itself, for a caller that connects signals to it. */
    QProgressDialog &dialog() { return m_dialog; }

private:
    void showPace(int done);

    LongJob m_job;
    QElapsedTimer m_age;
    JobPace m_pace;
    QElapsedTimer m_sincePace; ///< not valid before the pace was shown
    QProgressDialog m_dialog;
    PaceLabel *const m_label; ///< the dialog owns it
};
