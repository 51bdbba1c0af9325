// A progress without a window: keeps what a workflow reported, and can ask it to stop.
#pragma once

#include "library/progress.h"

#include <QList>

/** What happened to the progress of a workflow; outlives it. */
struct ProgressRecord {
    QString title;
    QString label;
    int maximum = -1;
    int opened = 0;
    bool isOpen = false;
    QList<int> updates; ///< the numbers given to updateProgress, in their order
    bool canceled = false;
    std::function<void(int done)> onUpdate; ///< called at each update, when it is set
};

class RecordedProgress : public Progress
{
public:
    RecordedProgress(ProgressRecord &record, const QString &title, const QString &label,
                     int maximum)
        : m_record(record)
    {
        m_record.title = title;
        m_record.label = label;
        m_record.maximum = maximum;
        m_record.isOpen = true;
        ++m_record.opened;
    }
    ~RecordedProgress() override { m_record.isOpen = false; }

    void setMaximum(int steps) override { m_record.maximum = steps; }
    void setValue(int) override {}
    void updateProgress(int done) override
    {
        m_record.updates.append(done);
        if (m_record.onUpdate)
            m_record.onUpdate(done);
    }
    bool wasCanceled() const override { return m_record.canceled; }

private:
    ProgressRecord &m_record;
};

/** What a workflow opens its progress with; the record must outlive it. */
inline OpenProgress recordedBy(ProgressRecord &record)
{
    return [&record](const QString &title, const QString &label, int maximum) {
        return std::make_unique<RecordedProgress>(record, title, label, maximum);
    };
}
