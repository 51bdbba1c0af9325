#include "app/songlists.h"

#include "app/actiongate.h"
#include "app/songdrop.h"
#include "app/songimport.h"
#include "app/songlist.h"
#include "app/startpage.h"
#include "library/historystore.h"
#include "library/m3ulist.h"
#include "library/settings.h"
#include "storage/diagnostics.h"
#include "windows/busystate.h"
#include "windows/emptylistpage.h"
#include "windows/filechooser.h"
#include "windows/unreadablefilesdialog.h"
#include "windows/usersongsreltablemodel.h"

#include "ui_mainwindow.h"

#include <QDir>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>

#include <utility>

namespace
{

constexpr int saidMilliseconds = 8000;
constexpr int widestEntry = 60; ///< characters of a path in the menu

/** Beside the history, for all programs that share it. */
QString pathOfLastList()
{
    return QFileInfo(HistoryStore::defaultPath()).dir().filePath(QStringLiteral("lastlist.m3u8"));
}

QString openFilter()
{
    return QStringLiteral("M3U8 (*.m3u8 *.m3u)");
}

/** A path as a menu shows it: its end says more than its beginning. */
QString entryText(const QString &path)
{
    QString text = QDir::toNativeSeparators(path);
    if (text.size() > widestEntry)
        text = QChar(0x2026) + text.right(widestEntry);
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

/** True for a song that is only out of reach: a saved list keeps it. */
bool isOutOfReach(const UnreadableFile &file)
{
    using Reason = UnreadableFile::Reason;
    return file.reason == Reason::Missing || file.reason == Reason::Locked ||
           file.reason == Reason::InUse;
}

} // namespace

SongLists::SongLists(QMainWindow *window, const Ui::MainWindow &form, Work work,
                     QSettings &settings, BusyState &busy, ActionGate &gate)
    : QObject(window)
    , m_window(window)
    , m_work(std::move(work))
    , m_busy(busy)
    , m_recentMenu(form.menuRecent)
    , m_recentFolders(settings, settings::recentFolders)
    , m_recentLists(settings, settings::recentLists)
    , m_lastList(pathOfLastList())
{
    connect(form.actionAddFiles, &QAction::triggered, this, &SongLists::addChosenFiles);
    connect(form.actionAddFolder, &QAction::triggered, this, &SongLists::addChosenFolder);
    connect(form.actionOpenList, &QAction::triggered, this, &SongLists::openChosenList);
    connect(form.actionSaveList, &QAction::triggered, this, &SongLists::saveList);
    connect(form.actionReopenList, &QAction::triggered, this, &SongLists::reopenLastList);
    connect(m_recentMenu, &QMenu::aboutToShow, this, &SongLists::fillRecentMenu);
    QAction *const actions[] = {form.actionAddFiles, form.actionAddFolder, form.actionOpenList,
                                form.actionSaveList, m_recentMenu->menuAction()};
    for (QAction *const action : actions) {
        action->setEnabled(true);
        gate.add(action);
        gate.setWanted(action, true);
    }
    gate.add(form.actionReopenList);
    m_enableReopening = [this, &gate, action = form.actionReopenList] {
        gate.setWanted(action, hasLastList());
    };
    m_enableReopening();
    new StartPage(m_work.songs.emptyPage(), *this, form, gate);
}

// ---------------------------------------------------------------- adding

void SongLists::takeDropsOf(const SongDrop *drop)
{
    connect(drop, &SongDrop::dropped, this, &SongLists::takeDropped);
    connect(drop, &SongDrop::dragged, &m_work.songs.emptyPage(), &EmptyListPage::setHighlighted);
}

void SongLists::chooseFolder()
{
    const BusyGuard busy(m_busy);
    const QString folder = m_work.import.chooseFolder();
    if (!folder.isEmpty())
        takeDropped({folder}, false);
}

void SongLists::takeDropped(const QStringList &paths, bool isAddition)
{
    const BusyGuard busy(m_busy);
    keepFolders(paths);
    if (isAddition) {
        addSongsOf(paths);
        return;
    }
    const auto files = m_work.import.search(paths);
    if (files && files->isEmpty())
        say(QCoreApplication::translate("MainWindow", "Nessuna song trovata"));
    else if (files)
        m_work.replace(*files);
}

void SongLists::addChosenFiles()
{
    const BusyGuard busy(m_busy);
    const QStringList files = m_work.import.choose();
    if (!files.isEmpty())
        addSongsOf(files);
}

void SongLists::addChosenFolder()
{
    const BusyGuard busy(m_busy);
    const QString folder = m_work.import.chooseFolder();
    if (folder.isEmpty())
        return;
    keepFolders({folder});
    addSongsOf({folder});
}

void SongLists::addSongsOf(const QStringList &paths)
{
    const auto files = m_work.import.search(paths);
    if (!files)
        return;
    if (files->isEmpty()) {
        say(QCoreApplication::translate("MainWindow", "Nessuna song trovata"));
        return;
    }
    const int before = m_work.songs.model().goodRowCount();
    const QStringList lookedAt = m_work.import.addFiles(*files);
    m_work.chosen.add(lookedAt);
    const int count = m_work.songs.model().goodRowCount() - before;
    if (lookedAt.isEmpty())
        say(tr("Queste song sono già nella lista"));
    else
        say(tr("Song aggiunte alla lista: %1").arg(count));
    if (count > 0)
        emit added();
}

// ---------------------------------------------------------------- opening

void SongLists::openChosenList()
{
    const BusyGuard busy(m_busy);
    const QStringList recent = m_recentLists.paths();
    const QString path = filechooser::openFile(
        m_window, tr("Apri lista"),
        recent.isEmpty() ? QString() : QFileInfo(recent.constFirst()).path(), {openFilter()});
    if (!path.isEmpty())
        openRecentList(path);
}

void SongLists::openRecentList(const QString &path)
{
    const BusyGuard busy(m_busy);
    if (openList(path))
        m_recentLists.add(path);
}

void SongLists::reopenLastList()
{
    const BusyGuard busy(m_busy);
    openList(m_lastList);
}

/** False, with the songs in the window as they were, when the file gives no list. */
bool SongLists::openList(const QString &path)
{
    QString problem;
    const M3uList list = M3uList::read(path, problem);
    if (problem.isEmpty() && list.songs.isEmpty())
        problem = tr("La lista non contiene song");
    if (!problem.isEmpty()) {
        QMessageBox box(QMessageBox::Warning, tr("Apri lista"),
                        QDir::toNativeSeparators(path) + QLatin1Char('\n') + problem,
                        QMessageBox::Ok, m_window);
        box.setTextFormat(Qt::PlainText);
        box.exec();
        return false;
    }
    m_work.replace(list.songs);
    // What is not there is named now, and not once more by each backup and transfer.
    for (const UnreadableFile &file : m_work.songs.unreadableFiles()) {
        if (file.reason == UnreadableFile::Reason::Missing)
            m_work.chosen.remove(file.path);
    }
    tellProblems(list.strange, list.isCut);
    return true;
}

void SongLists::tellProblems(const QStringList &strangeLines, bool isCut)
{
    QList<FileListDialog::Line> lines;
    for (const UnreadableFile &file : m_work.songs.unreadableFiles())
        lines.append({file.path, file.reasonText()});
    for (const QString &line : strangeLines)
        lines.append({line, tr("Non è il percorso di un file")});
    if (!lines.isEmpty())
        FileListDialog(
            UnreadableFilesDialog::tr("File non leggibili"),
            UnreadableFilesDialog::tr("Questi file non sono stati inseriti &nella lista:"), lines,
            m_window)
            .exec();
    if (isCut)
        QMessageBox::warning(m_window, tr("Apri lista"),
                             tr("La lista è troppo lunga: solo le prime %1 song sono state lette.")
                                 .arg(M3uList::mostSongs));
}

// ---------------------------------------------------------------- saving

void SongLists::saveList()
{
    const BusyGuard busy(m_busy);
    const QStringList songs = songsToSave();
    if (songs.isEmpty()) {
        say(tr("La lista è vuota"));
        return;
    }
    const QString relative = tr("Lista con percorsi relativi (*.m3u8)");
    const QString absolute = tr("Lista con percorsi assoluti (*.m3u8)");
    const QStringList recent = m_recentLists.paths();
    const auto [path, filter] = filechooser::saveFile(
        m_window, {tr("Salva lista"),
                   recent.isEmpty() ? QString() : QFileInfo(recent.constFirst()).path(),
                   {relative, absolute},
                   QStringLiteral("m3u8"),
                   {}});
    if (path.isEmpty())
        return;
    const auto paths = filter == absolute ? M3uList::Paths::Absolute : M3uList::Paths::Relative;
    const QString problem = M3uList::write(path, songs, paths);
    if (problem.isEmpty()) {
        m_recentLists.add(path);
        say(tr("Song salvate nella lista: %1").arg(songs.size()));
        return;
    }
    QMessageBox box(QMessageBox::Critical, tr("Salva lista"),
                    QDir::toNativeSeparators(path) + QLatin1Char('\n') + problem, QMessageBox::Ok,
                    m_window);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

/** The songs as they stand in the window, and behind them those that are only out of reach. */
QStringList SongLists::songsToSave() const
{
    QStringList songs = m_work.songs.files();
    for (const UnreadableFile &file : m_work.songs.unreadableFiles()) {
        if (isOutOfReach(file))
            songs.append(file.path);
    }
    songs.removeDuplicates();
    return songs;
}

void SongLists::keepList()
{
    const QStringList songs = songsToSave();
    if (songs.isEmpty())
        return;
    QDir().mkpath(QFileInfo(m_lastList).path());
    const QString problem = M3uList::write(m_lastList, songs, M3uList::Paths::Absolute);
    if (!problem.isEmpty())
        logWarning() << "[SongLists::keepList] Impossible to write" << m_lastList << problem;
    m_enableReopening();
}

// ---------------------------------------------------------------- lists and folders of late

void SongLists::fillRecentMenu()
{
    m_recentMenu->clear();
    for (const QString &path : m_recentLists.paths()) {
        QAction *const entry = m_recentMenu->addAction(entryText(path));
        entry->setEnabled(QFileInfo(path).isFile());
        connect(entry, &QAction::triggered, this, [this, path] { openRecentList(path); });
    }
    m_recentMenu->addSeparator();
    for (const QString &path : m_recentFolders.paths()) {
        QAction *const entry = m_recentMenu->addAction(tr("Aggiungi %1").arg(entryText(path)));
        entry->setEnabled(QFileInfo(path).isDir());
        connect(entry, &QAction::triggered, this, [this, path] {
            const BusyGuard busy(m_busy);
            keepFolders({path});
            addSongsOf({path});
        });
    }
    if (m_recentMenu->isEmpty() || m_recentMenu->actions().size() == 1)
        m_recentMenu->addAction(tr("Nessuna lista"))->setEnabled(false);
}

QStringList SongLists::openable() const
{
    QStringList lists = m_recentLists.paths();
    lists.removeIf([](const QString &path) { return !QFileInfo(path).isFile(); });
    return lists;
}

bool SongLists::hasLastList() const
{
    return QFileInfo::exists(m_lastList);
}

void SongLists::keepFolders(const QStringList &paths)
{
    for (const QString &path : paths) {
        if (QFileInfo(path).isDir())
            m_recentFolders.add(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    }
}

void SongLists::say(const QString &text)
{
    m_window->statusBar()->showMessage(text, saidMilliseconds);
}
