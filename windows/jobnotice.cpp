#include "windows/jobnotice.h"

#include "windows/desktopbus.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>

namespace
{

constexpr int longestText = 200;

QPointer<JobNotice> waitingNotice; ///< of the last long job that nobody was told of

} // namespace

JobNotice::JobNotice(const QString &title)
    : QObject(qApp)
    , m_title(title)
{
    qApp->installEventFilter(this);
}

void JobNotice::expect(const QString &title)
{
    delete waitingNotice;
    waitingNotice = new JobNotice(title);
}

void JobNotice::tell()
{
    if (waitingNotice)
        waitingNotice->notify(waitingNotice->m_title, tr("Il lavoro è finito"));
}

bool JobNotice::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Show || qobject_cast<QDialog *>(watched) == nullptr ||
        qobject_cast<QProgressDialog *>(watched) != nullptr)
        return QObject::eventFilter(watched, event);
    const auto *const box = qobject_cast<QMessageBox *>(watched);
    if (box != nullptr)
        notify(box->windowTitle(), box->text());
    else
        notify(m_title, tr("Il programma aspetta una risposta"));
    return false;
}

void JobNotice::notify(const QString &title, const QString &text)
{
    if (QApplication::activeWindow() == nullptr)
        desktopbus::notify(title, text.left(longestText));
    qApp->removeEventFilter(this);
    deleteLater();
    waitingNotice.clear();
}
