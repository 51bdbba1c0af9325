// The interface through which a long job reports its steps and learns that the user wants to stop
// it.
#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>
#include <memory>

class Progress
{
public:
    Progress() = default;
    virtual ~Progress() = default;
    Q_DISABLE_COPY_MOVE(Progress)

    /** The number of steps of the whole job. */
    virtual void setMaximum(int steps) = 0;

    /** Reports the number of steps done so far and lets the windows process events. */
    virtual void setValue(int done) = 0;

    /** As setValue, and says "n of maximum" in words. */
    virtual void updateProgress(int done) = 0;

    /**
     * Shows the last step if it was held back. To be called before work during which no events are
     * processed for a long time, so that the number on the screen is right meanwhile.
     */
    virtual void catchUp() {}

    /** True once the user asked the job to stop. */
    virtual bool wasCanceled() const = 0;
};

/**
 * Opens the progress of a job: window title, label and number of steps are given. A workflow that
 * asks its questions first opens it only when the work begins; it closes when it is destroyed.
 */
using OpenProgress = std::function<std::unique_ptr<Progress>(const QString &title,
                                                             const QString &label, int maximum)>;
