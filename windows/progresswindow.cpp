#include "windows/progresswindow.h"

#include "windows/pacelabel.h"

#include <QCoreApplication>

namespace
{
constexpr int leastWidth = 360;
constexpr int paceMilliseconds = 1000; ///< a line that changes all the time cannot be read

QElapsedTimer started()
{
    QElapsedTimer timer;
    timer.start();
    return timer;
}

/** Belongs to the dialog, as its label. */
PaceLabel *labelOf(QProgressDialog &dialog)
{
    auto *const label = new PaceLabel(dialog.labelText());
    dialog.setLabel(label);
    return label;
}
} // namespace

ProgressWindow::ProgressWindow(const QString &title, const QString &label, int maximum,
                               QWidget *parent)
    : m_job(title)
    , m_age(started())
    , m_pace([this] { return m_age.elapsed(); })
    , m_dialog(label, QCoreApplication::translate("MainWindow", "Interrompi"), 0, maximum, parent)
    , m_label(labelOf(m_dialog))
{
    m_dialog.setWindowTitle(title);
    m_dialog.setWindowModality(Qt::WindowModal);
    m_dialog.setAutoReset(false);
    m_dialog.setAutoClose(false);
    m_dialog.setMinimumDuration(0);
    // Wide enough for its title, and for numbers that grow.
    m_dialog.setMinimumSize(m_dialog.sizeHint().expandedTo(QSize(leastWidth, 0)));
    // Qt hides a cancelled progress dialog at once, but the job goes on until it checks for the
    // cancellation, or to its end.
    QObject::connect(&m_dialog, &QProgressDialog::canceled, &m_dialog, &QWidget::show,
                     Qt::QueuedConnection);
    m_dialog.setValue(0);
    m_dialog.show();
}

ProgressWindow::~ProgressWindow()
{
    m_dialog.hide();
}

void ProgressWindow::setMaximum(int steps)
{
    m_dialog.setMaximum(steps);
}

void ProgressWindow::setValue(int done)
{
    showPace(done);
    m_dialog.setValue(done);
}

void ProgressWindow::updateProgress(int done)
{
    showPace(done);
    m_dialog.setLabelText(
        QCoreApplication::translate("MainWindow", "%1 di %2").arg(done).arg(m_dialog.maximum()));
    m_dialog.setValue(done);
}

void ProgressWindow::showPace(int done)
{
    m_pace.take(done, m_dialog.maximum());
    m_job.setProgress(done, m_dialog.maximum());
    if (m_sincePace.isValid() && !m_sincePace.hasExpired(paceMilliseconds))
        return;
    m_sincePace.start();
    m_label->setPace(m_pace.text());
}

bool ProgressWindow::wasCanceled() const
{
    return m_dialog.wasCanceled();
}
