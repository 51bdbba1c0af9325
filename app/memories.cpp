#include "app/memories.h"

#include "app/actiongate.h"
#include "app/memorycare.h"
#include "app/memorysongwork.h"
#include "app/windowprogress.h"
#include "devindex/eject.h"
#include "devindex/mountedvolumes.h"
#include "library/keepalive.h"
#include "windows/busystate.h"
#include "windows/memorywindow.h"

#include <QAction>
#include <QMessageBox>

Memories::Memories(QWidget *mainWindow, QAction *action, ActionGate &gate, const Database &database,
                   BusyState &busy, WindowProgress &progress)
    : QObject(mainWindow)
    , m_mainWindow(mainWindow)
    , m_database(database)
    , m_busy(busy)
    , m_progress(progress)
{
    gate.add(action);
    connect(action, &QAction::triggered, this, [this] { open(); });
}

Memories::~Memories() = default;

void Memories::open(const QString &folder)
{
    if (!m_window) {
        m_window = std::make_unique<MemoryWindow>();
        auto *const care = new MemoryCare(m_window.get());
        new MemorySongWork(m_window.get(), *care, m_database);
    }
    if (!folder.isEmpty())
        m_window->choose(folder);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void Memories::goOn(TransferDialogs::Next next, const QString &folder)
{
    if (next == TransferDialogs::Next::ShowMemory)
        open(folder);
    else if (next == TransferDialogs::Next::Eject)
        eject(folder);
}

void Memories::eject(const QString &folder)
{
    const BusyGuard busy(m_busy);
    const QString root = MountedVolumes().getRootDrivePath(folder);
    Eject::Report report;
    {
        const auto progress =
            m_progress.open()(tr("Memoria"), tr("Espulsione della memoria..."), 0);
        KeepAlive::workInBackground([&] {
            const std::unique_ptr<Ejector> ejector = Ejector::ofSystem();
            report = Eject(*ejector).run(root);
            return report.isEjected;
        });
    }
    QMessageBox box(report.isEjected ? QMessageBox::Information : QMessageBox::Warning,
                    tr("Memoria"), report.text, QMessageBox::Ok, m_mainWindow);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool Memories::close()
{
    return !m_window || m_window->close();
}
