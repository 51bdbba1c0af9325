#include "app/memorycare.h"

#include "devindex/eject.h"
#include "devindex/memorycheck.h"
#include "devindex/playlistrepair.h"
#include "storage/memorylock.h"
#include "windows/confirmation.h"
#include "windows/memorycheckpage.h"
#include "windows/memoryduplicatespage.h"
#include "windows/memorywindow.h"

#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>

#include <memory>
#include <optional>

namespace
{

/** The work and the thread of the windows look at it one after the other. */
template <typename Result>
std::shared_ptr<Result> resultOf()
{
    return std::make_shared<Result>();
}

} // namespace

MemoryCare::MemoryCare(MemoryWindow *window)
    : QObject(window)
    , m_window(*window)
{
    constexpr int laterMilliseconds = 200;
    m_later.setSingleShot(true);
    m_later.setInterval(laterMilliseconds);
    connect(&m_later, &QTimer::timeout, this, [this] { read(m_laterMessage); });
    connect(window, &MemoryWindow::readRequested, this, [this] { read(); });
    connect(window, &MemoryWindow::ejectRequested, this, &MemoryCare::eject);
    connect(&window->duplicatesPage(), &MemoryDuplicatesPage::compareRequested, this,
            &MemoryCare::compareFiles);
    MemoryCheckPage &checks = window->checkPage();
    connect(&checks, &MemoryCheckPage::checkRequested, this, &MemoryCare::check);
    connect(&checks, &MemoryCheckPage::updateRequested, this, &MemoryCare::updateIndex);
    connect(&checks, &MemoryCheckPage::rebuildRequested, this, &MemoryCare::rebuildIndex);
    connect(&checks, &MemoryCheckPage::mendRequested, this, &MemoryCare::mendPlaylists);
}

void MemoryCare::read(const QString &message)
{
    const QString root = m_window.root();
    if (m_window.job().isRunning() && m_readRoot == root)
        return;
    m_laterMessage = message;
    if (m_window.job().isRunning() || QApplication::activeModalWidget() != nullptr) {
        m_later.start();
        return;
    }
    if (root.isEmpty()) {
        m_window.setContents(nullptr);
        m_window.showMessage({});
        return;
    }
    m_readRoot = root;
    const auto contents = std::make_shared<MemoryContents>(root);
    const auto problem = resultOf<QString>();
    const OpenProgress open = m_window.job().openProgress();
    const QString label = tr("Lettura della memoria...");
    m_window.startReading(
        [contents, problem, open, label] { *problem = contents->read(*open({}, label, 0)); },
        [this, contents, problem, message] {
            m_readRoot.clear();
            m_window.setContents(contents->isRead() ? contents : nullptr);
            if (contents->isRead())
                m_window.showMessage(message);
            else
                m_window.showMessage(problem->isEmpty() ? tr("La lettura è stata interrotta.")
                                                        : *problem);
        });
}

bool MemoryCare::isThere()
{
    const SharedContents contents = m_window.contents();
    const bool isAsRead = !contents || contents->root() != m_window.root() || contents->isThere();
    if (isAsRead && QFileInfo(m_window.root()).isDir())
        return true;
    m_window.setContents(nullptr);
    m_window.showMessage(tr("La memoria non è più collegata."));
    warn(tr("La memoria non è più collegata."));
    return false;
}

void MemoryCare::compareFiles()
{
    if (!isThere())
        return;
    const SharedContents contents = m_window.contents();
    const OpenProgress open = m_window.job().openProgress();
    const QString label = tr("Confronto dei file...");
    const auto groups = resultOf<std::optional<QList<memoryduplicates::Group>>>();
    const auto refusal = resultOf<QString>();
    m_window.startReading(
        [contents, open, label, groups, refusal] {
            MemoryLock lock(contents->root());
            if (!lock.take() && lock.isHeldByOther())
                *refusal = lock.message();
            else
                *groups = memoryduplicates::sameBytes(contents->songs(), *open({}, label, 0));
        },
        [this, groups, refusal] {
            m_window.showMessage({});
            if (!refusal->isEmpty()) {
                warn(*refusal);
            } else if (!*groups) {
                m_window.showMessage(tr("Il confronto è stato interrotto."));
            } else if (isThere()) {
                m_window.showDuplicates(**groups);
                m_window.showMessage(
                    tr("%n gruppi di file uguali", "", static_cast<int>((*groups)->size())));
            }
        });
}

void MemoryCare::check()
{
    if (!isThere())
        return;
    const QString root = m_window.root();
    const OpenProgress open = m_window.job().openProgress();
    const QString label = tr("Controllo della memoria...");
    const auto findings = resultOf<QList<MemoryCheck::Finding>>();
    const auto isStopped = resultOf<bool>();
    const auto refusal = resultOf<QString>();
    m_window.startReading(
        [root, open, label, findings, isStopped, refusal] {
            const auto progress = open({}, label, 0);
            MemoryLock lock(root);
            if (!lock.take() && lock.isHeldByOther())
                *refusal = lock.message();
            else
                *findings = MemoryCheck(root).run([&] { return progress->wasCanceled(); });
            *isStopped = progress->wasCanceled();
        },
        [this, findings, isStopped, refusal] {
            m_window.showMessage({});
            if (!refusal->isEmpty())
                warn(*refusal);
            else if (*isStopped)
                m_window.showMessage(tr("Il controllo è stato interrotto."));
            else if (isThere()) // what was found on a memory that went meanwhile is worth nothing
                m_window.checkPage().setFindings(*findings);
        });
}

void MemoryCare::updateIndex()
{
    change([](SongChanges &changes) { return changes.updateIndex(); },
           [](const SongChanges::Report &report) {
               return report.isIndexTrue ? tr("Il database è aggiornato.") : QString();
           });
}

void MemoryCare::rebuildIndex()
{
    if (!confirm(tr("Il database viene creato da capo: può durare alcuni minuti. Le playlist "
                    "conservano le loro song. Procedere?")))
        return;
    change([](SongChanges &changes) { return changes.rebuildIndex(); },
           [](const SongChanges::Report &report) {
               return report.isIndexTrue ? tr("Il database è stato rigenerato.") : QString();
           });
}

void MemoryCare::mendPlaylists()
{
    if (!isThere() ||
        !confirm(tr("Le song perdute tornano nelle playlist, dove l'ultimo aggiornamento ha "
                    "annotato quali erano. Il resto delle playlist non cambia. Procedere?")) ||
        !isThere())
        return;
    const QString root = m_window.contents()->root();
    const auto report = resultOf<PlaylistRepair::Report>();
    m_window.job().start(
        [root, report] { *report = PlaylistRepair(root).run(); },
        [this, report] {
            if (!report->refusal.isEmpty())
                warn(report->refusal);
            else if (report->failed > 0)
                warn(tr("%n playlist non si possono leggere o scrivere.", "", report->failed));
            read(tr("%n song sono di nuovo nelle playlist.", "", report->foundAgain));
        });
}

void MemoryCare::eject()
{
    if (!isThere())
        return;
    const QString root = m_window.root();
    const OpenProgress open = m_window.job().openProgress();
    const QString label = tr("Espulsione della memoria...");
    const auto report = resultOf<Eject::Report>();
    m_window.job().start(
        [root, open, label, report] {
            const auto progress = open({}, label, 0);
            const std::unique_ptr<Ejector> ejector = Ejector::ofSystem();
            *report = Eject(*ejector).run(root);
        },
        [this, report] {
            m_window.showMessage(report->text);
            if (!report->isEjected) {
                warn(report->text);
                return;
            }
            m_window.setContents(nullptr);
            QMessageBox::information(&m_window, tr("Memoria"), report->text);
        });
}

void MemoryCare::change(const std::function<SongChanges::Report(SongChanges &changes)> &work,
                        const std::function<QString(const SongChanges::Report &report)> &message)
{
    BackgroundJob &job = m_window.job();
    if (job.isRunning() || !m_window.contents() || !isThere())
        return;
    const SharedContents contents = m_window.contents(); // the songs that the user saw
    const auto report = resultOf<SongChanges::Report>();
    job.start(
        [contents, &job, work, report] {
            SongChanges changes(contents->root(), job.openProgress());
            changes.setDevice(contents->device());
            changes.setRenameQuestion([&job](const QString &path, const QString &question) {
                return job.ask([&] { return confirmation::ask(path, question); });
            });
            *report = work(changes);
        },
        [this, report, message] {
            tell(*report);
            read(message(*report));
        });
}

void MemoryCare::tell(const SongChanges::Report &report)
{
    if (report.isComplete() && report.indexProblems.isEmpty())
        return;
    QStringList sentences;
    if (!report.refusal.isEmpty())
        sentences.append(report.refusal);
    if (!report.failed.isEmpty())
        sentences.append(
            tr("%n song non sono state cambiate.", "", static_cast<int>(report.failed.size())));
    if (report.stopped)
        sentences.append(tr("Il lavoro è stato interrotto: le altre song sono come prima."));
    if (report.refusal.isEmpty() && !report.isIndexTrue)
        sentences.append(tr("Il database della memoria non è stato aggiornato."));
    if (!report.indexProblems.isEmpty())
        sentences.append(tr("Il database non ha accettato tutte le song."));
    QStringList details;
    for (const SongChanges::Failure &failure : report.failed)
        details.append(QStringLiteral("%1: %2").arg(failure.path, failure.reason));
    details += report.indexProblems;

    QMessageBox box(QMessageBox::Warning, tr("Memoria"), sentences.join(QLatin1Char('\n')),
                    QMessageBox::Ok, &m_window);
    box.setTextFormat(Qt::PlainText); // a file's name could look like markup
    if (details.size() == 1)
        box.setInformativeText(details.constFirst());
    else if (!details.isEmpty())
        box.setDetailedText(details.join(QLatin1Char('\n')));
    box.exec();
}

bool MemoryCare::confirm(const QString &text)
{
    return QMessageBox::question(&m_window, tr("Memoria"), text, QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::No) == QMessageBox::Yes;
}

void MemoryCare::warn(const QString &text)
{
    QMessageBox box(QMessageBox::Warning, tr("Memoria"), text, QMessageBox::Ok, &m_window);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}
