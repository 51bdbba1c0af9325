#include "windows/shownprogress.h"

#include "library/keepalive.h"

ShownProgress::ShownProgress(Progress *&shown, const QString &title, const QString &label,
                             int maximum, QWidget *parent)
    : ProgressWindow(title, label, maximum, parent)
    , m_shown(shown)
    , m_before(shown)
{
    m_shown = this;
    m_due.setSingleShot(true);
    QObject::connect(&m_due, &QTimer::timeout, &m_due, [this] { showLast(); });
}

ShownProgress::~ShownProgress()
{
    m_shown = m_before;
}

void ShownProgress::setValue(int done)
{
    take(done, false);
}

void ShownProgress::updateProgress(int done)
{
    take(done, true);
}

void ShownProgress::catchUp()
{
    if (m_due.isActive())
        showLast();
}

void ShownProgress::take(int done, bool inWords)
{
    m_done = done;
    m_inWords = inWords;
    const qint64 wait =
        m_sinceShown.isValid() ? KeepAlive::progressMilliseconds - m_sinceShown.elapsed() : 0;
    if (done >= dialog().maximum() || wait <= 0)
        showLast();
    else if (!m_due.isActive())
        m_due.start(static_cast<int>(wait));
}

/** Showing a step processes events, so the timer must not be due meanwhile. */
void ShownProgress::showLast()
{
    m_due.stop();
    m_sinceShown.start();
    if (m_inWords)
        ProgressWindow::updateProgress(m_done);
    else
        ProgressWindow::setValue(m_done);
}
