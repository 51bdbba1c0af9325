#include "windows/backgroundjob.h"

#include "library/keepalive.h"

#include <QCoreApplication>

#include <utility>

/** Keeps the numbers where the windows' thread finds them. */
class BackgroundJob::Part : public Progress
{
public:
    Part(BackgroundJob &job, const QString &label, int maximum)
        : m_job(job)
    {
        const QMutexLocker locked(&m_job.m_labelMutex);
        m_job.m_label = label;
        m_job.m_maximum = maximum;
        m_job.m_value = 0;
    }

    void setMaximum(int steps) override { m_job.m_maximum = steps; }
    void setValue(int done) override { m_job.m_value = done; }
    void updateProgress(int done) override { m_job.m_value = done; }
    bool wasCanceled() const override { return m_job.m_isCanceled; }

private:
    BackgroundJob &m_job;
};

BackgroundJob::BackgroundJob(QObject *parent)
    : QObject(parent)
{
    m_clock.setInterval(KeepAlive::progressMilliseconds);
    connect(&m_clock, &QTimer::timeout, this, &BackgroundJob::showProgress);
}

BackgroundJob::~BackgroundJob()
{
    m_isClosing = true;
    m_isCanceled = true;
    // A question that the work has asked already waits for an answer from here.
    constexpr unsigned long waitMilliseconds = 10;
    while (m_thread != nullptr && !m_thread->wait(waitMilliseconds))
        QCoreApplication::sendPostedEvents(this);
}

void BackgroundJob::start(std::function<void()> work, std::function<void()> done)
{
    Q_ASSERT(!isRunning());
    m_isCanceled = false;
    m_label.clear();
    m_value = 0;
    m_maximum = 0;
    m_done = std::move(done);
    m_thread.reset(QThread::create(std::move(work)));
    connect(m_thread.get(), &QThread::finished, this, &BackgroundJob::finish);
    m_clock.start();
    m_longJob.emplace(tr("Memoria"));
    emit began();
    m_thread->start();
}

OpenProgress BackgroundJob::openProgress()
{
    return [this](const QString &, const QString &label, int maximum) {
        return std::make_unique<Part>(*this, label, maximum);
    };
}

Answer BackgroundJob::ask(const std::function<Answer()> &question)
{
    m_question = &question;
    m_answer = Answer::NoToAll;
    QMetaObject::invokeMethod(this, "answerQuestion", Qt::BlockingQueuedConnection);
    return m_answer;
}

/** On the windows' thread, while the work waits. */
void BackgroundJob::answerQuestion()
{
    if (!m_isClosing)
        m_answer = (*m_question)();
}

void BackgroundJob::showProgress()
{
    QString label;
    {
        const QMutexLocker locked(&m_labelMutex);
        label = m_label;
    }
    if (m_longJob)
        m_longJob->setProgress(m_value, m_maximum);
    emit progressChanged(label, m_value, m_maximum);
}

void BackgroundJob::finish()
{
    m_clock.stop();
    m_thread->wait();
    m_thread.reset();
    m_longJob.reset();
    emit ended();
    const std::function<void()> done = std::move(m_done);
    m_done = nullptr;
    if (done)
        done();
    if (!isRunning()) // done() may have begun the next part
        LongJob::isOver();
}
