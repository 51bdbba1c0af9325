#include "app/memorysongwork.h"

#include "app/memorycare.h"
#include "app/memoryhistory.h"
#include "devindex/copiesfrommemory.h"
#include "devindex/filestamp.h"
#include "devindex/shownnames.h"
#include "formats/metasong.h"
#include "library/runreport.h"
#include "storage/leftovers.h"
#include "storage/memorylock.h"
#include "windows/confirmation.h"
#include "windows/dataeditdialog.h"
#include "windows/filechooser.h"
#include "windows/memoryduplicatespage.h"
#include "windows/memorysongspage.h"
#include "windows/memorywindow.h"
#include "windows/renamesongdialog.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>
#include <memory>

namespace
{

/** So many names are read in a question. */
constexpr qsizetype mostNames = 8;

/** Reads the song and gives it the details that were entered; why it was not saved. */
QString save(const QString &path, const SongEdit &edit, bool isShown, HistoryRecorder &recorder)
{
    Leftovers().tidyBeside(path);
    MetaSong song;
    if (!song.importFile(path))
        return RunReport::reasonText(loadFailureOf(path));
    SongInfo before;
    song.getSongInfo(before);
    SongInfo info = before;
    if (isShown)
        info = edit.info;
    else
        edit.applyToOther(info, path);
    song.setSongInfo(info, true);
    const SaveFailure failure = song.save(path);
    MetaSong saved;
    SongInfo after;
    if (saved.importFile(path))
        saved.getSongInfo(after);
    recorder.written(path, before, after);
    return RunReport::reasonText(failure);
}

/** Nothing was done to the songs, for this reason. */
SongChanges::Report nothingDone(const QStringList &paths, const QString &reason)
{
    SongChanges::Report report;
    for (const QString &path : paths)
        report.failed.append({path, reason});
    report.isIndexTrue = true;
    return report;
}

} // namespace

MemorySongWork::MemorySongWork(MemoryWindow *window, MemoryCare &care, const Database &database)
    : QObject(window)
    , m_window(*window)
    , m_care(care)
    , m_database(database)
    , m_dialog(new DataEditDialog(window))
{
    MemorySongsPage &songs = window->songsPage();
    connect(&songs, &MemorySongsPage::editRequested, this, &MemorySongWork::edit);
    connect(&songs, &MemorySongsPage::renameRequested, this, &MemorySongWork::rename);
    connect(&songs, &MemorySongsPage::copyRequested, this, &MemorySongWork::copy);
    connect(&songs, &MemorySongsPage::showRequested, this, &MemorySongWork::show);
    connect(&songs, &MemorySongsPage::removeRequested, this,
            [this](const QList<qsizetype> &chosen) { remove(chosen, 0); });
    connect(&window->duplicatesPage(), &MemoryDuplicatesPage::removeRequested, this,
            &MemorySongWork::remove);
}

MemorySongWork::~MemorySongWork() = default;

/** The songs but those of which there is no file; the user is told when none is left. */
QList<MemorySong> MemorySongWork::filesOf(const QList<qsizetype> &songs) const
{
    QList<MemorySong> files;
    bool isAnyHidden = false;
    for (const qsizetype song : songs) {
        const MemorySong &listed = m_window.contents()->songs().at(song);
        isAnyHidden = isAnyHidden || listed.state == MemorySong::State::Unreadable;
        if (listed.state != MemorySong::State::Gone &&
            listed.state != MemorySong::State::Unreadable)
            files.append(listed);
    }
    if (files.isEmpty())
        QMessageBox::information(
            &m_window, tr("Memoria"),
            isAnyHidden ? tr("Queste song sono in cartelle che non si possono leggere: controllare "
                             "la memoria con gli strumenti del sistema.")
                        : tr("Di queste song non c'è più il file. \"Aggiorna\" nella scheda "
                             "\"Controllo\" le toglie dal database."));
    return files;
}

QString MemorySongWork::whyChanged()
{
    return tr("un altro programma l'ha cambiata: rileggere la memoria");
}

MemorySongWork::Picked MemorySongWork::pick(const QList<MemorySong> &songs)
{
    Picked picked;
    for (const MemorySong &song : songs) {
        if (isAsListed(song))
            picked.paths.append(song.info.path);
        else
            picked.changed.append({song.info.path, whyChanged()});
    }
    return picked;
}

void MemorySongWork::remove(const QList<qsizetype> &songs, int groupsWithoutRest)
{
    if (!m_care.isThere())
        return;
    const QList<MemorySong> files = filesOf(songs);
    if (files.isEmpty() || !confirmRemoval(files, groupsWithoutRest))
        return;
    m_care.change(
        [files](SongChanges &changes) {
            const Picked picked = pick(files);
            SongChanges::Report report = changes.remove(picked.paths);
            report.failed += picked.changed;
            return report;
        },
        [](const SongChanges::Report &report) {
            return tr("%n song eliminate dalla memoria.", "", static_cast<int>(report.done.size()));
        });
}

bool MemorySongWork::confirmRemoval(const QList<MemorySong> &songs, int groupsWithoutRest)
{
    QStringList names;
    for (const MemorySong &song : songs.first(std::min(songs.size(), mostNames)))
        names.append(song.info.path);
    if (songs.size() > mostNames)
        names.append(tr("e altre %n", "", static_cast<int>(songs.size() - mostNames)));
    if (groupsWithoutRest > 0)
        names.append(QLatin1Char('\n') + tr("Attenzione: di %n gruppi non rimane nessuna song!", "",
                                            groupsWithoutRest));
    QMessageBox box(QMessageBox::Warning, tr("Memoria"),
                    tr("%n song verranno eliminate dalla memoria con le loro immagini karaoke. "
                       "Procedere?",
                       "", static_cast<int>(songs.size())),
                    QMessageBox::Yes | QMessageBox::No, &m_window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(names.join(QLatin1Char('\n')));
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

void MemorySongWork::rename(qsizetype song)
{
    if (!m_care.isThere())
        return;
    const QList<MemorySong> files = filesOf({song});
    if (files.isEmpty())
        return;
    RenameSongDialog dialog(m_window.contents()->root(), files.constFirst().info.path, &m_window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString newName = dialog.newName();
    m_care.change(
        [files, newName, root = m_window.contents()->root(),
         &job = m_window.job()](SongChanges &changes) {
            const Picked picked = pick(files);
            if (picked.paths.isEmpty())
                return nothingDone({files.constFirst().info.path}, whyChanged());
            const QString path = picked.paths.constFirst();
            const QString full = root + path;
            const QString newFull = QFileInfo(full).dir().filePath(newName);
            MemoryHistory history(job);
            const auto recorder = history.recorder(HistoryJob::Kind::Rename);
            if (!recorder->keepRenamed(full, newFull))
                return nothingDone({path}, MemoryHistory::whyRefused());
            SongInfo info;
            if (MetaSong song; song.importFile(full))
                song.getSongInfo(info);
            SongChanges::Report report = changes.rename(path, newName);
            if (QFileInfo(newFull).isFile() && !QFileInfo::exists(full))
                recorder->written(full, info, info);
            return report;
        },
        [](const SongChanges::Report &report) {
            return report.done.isEmpty()
                       ? QString()
                       : tr("La song si chiama ora %1.").arg(report.done.constFirst());
        });
}

void MemorySongWork::edit(const QList<qsizetype> &songs)
{
    if (!m_care.isThere())
        return;
    const QList<MemorySong> files = filesOf(songs);
    if (files.isEmpty())
        return;
    const QString root = m_window.contents()->root();
    const auto info = std::make_shared<SongInfo>();
    const auto problem = std::make_shared<QString>();
    const auto shown = std::make_shared<MemorySong>(files.constFirst());
    m_window.job().start([root, shown, info, problem] { *problem = load(root, *shown, *info); },
                         [this, files, shown, info, problem] {
                             QList<MemorySong> songs = files;
                             songs.first() = *shown;
                             if (problem->isEmpty())
                                 editInfo(songs, *info);
                             else if (m_care.isThere())
                                 warn(*problem, {shown->info.path});
                         });
}

/** Reads the song's details; why that failed. */
QString MemorySongWork::load(const QString &root, MemorySong &listed, SongInfo &info)
{
    MemoryLock lock(root);
    if (!lock.take())
        return lock.message();
    if (!isAsListed(listed))
        return whyChanged();
    const QString path = listed.info.fullPath;
    MetaSong song;
    if (!song.importFile(path))
        return RunReport::reasonText(loadFailureOf(path));
    song.getSongInfo(info);
    // A song whose last save was cut off was put right by this.
    if (const auto stamp = FileStamp::of(path)) {
        listed.info.date = stamp->date;
        listed.info.time = stamp->time;
        listed.size = QFileInfo(path).size();
    }
    return {};
}

void MemorySongWork::editInfo(const QList<MemorySong> &songs, const SongInfo &info)
{
    const QString root = m_window.contents()->root();
    m_dialog->setOthers(songs.size() > 1 ? DataEditDialog::Others::Chosen
                                         : DataEditDialog::Others::None);
    const std::optional<SongEdit> entered = editInDialog(*m_dialog, m_database, info);
    if (!entered)
        return;
    const QString shown = songs.constFirst().info.path;
    const QList<MemorySong> concerned = entered->concernsOthers() ? songs : songs.first(1);
    m_care.change(
        [concerned, shown, root, edit = *entered, &job = m_window.job()](SongChanges &changes) {
            const Picked picked = pick(concerned);
            MemoryHistory history(job);
            const auto recorder = history.recorder(HistoryJob::Kind::Edit);
            // Asked before the index is touched.
            SongChanges::Report report =
                MemoryHistory::keepNext(*recorder, root, picked.paths, 0)
                    ? changes.rewriteAll(
                          picked.paths,
                          [&](const QString &path) {
                              return MemoryHistory::keepNext(*recorder, root, picked.paths,
                                                             picked.paths.indexOf(path))
                                         ? save(root + path, edit, path == shown, *recorder)
                                         : MemoryHistory::whyRefused();
                          })
                    : nothingDone(picked.paths, MemoryHistory::whyRefused());
            report.failed += picked.changed;
            return report;
        },
        [](const SongChanges::Report &report) {
            return tr("%n song salvate.", "", static_cast<int>(report.done.size()));
        });
}

void MemorySongWork::copy(const QList<qsizetype> &songs)
{
    if (!m_care.isThere())
        return;
    const QList<MemorySong> files = filesOf(songs);
    if (files.isEmpty())
        return;
    const QString folder =
        filechooser::folder(&m_window, tr("Scegli cartella"),
                            QStandardPaths::writableLocation(QStandardPaths::MusicLocation));
    if (folder.isEmpty() || !m_care.isThere()) // the memory may have been pulled meanwhile
        return;
    BackgroundJob &job = m_window.job();
    const QString root = m_window.contents()->root();
    const auto copies = std::make_shared<CopiesFromMemory>(root, [&job](const QString &target) {
        return job.ask([&] { return confirmation::askToReplace(target); });
    });
    const QString reason = copies->whyNotInto(folder);
    if (!reason.isEmpty()) {
        warn(reason);
        return;
    }
    QStringList paths;
    for (const MemorySong &song : files)
        paths.append(song.info.path);
    const QString label = tr("Copia song...");
    const auto refusal = std::make_shared<QString>();
    const auto report = std::make_shared<FileCopier::Report>();
    const auto isStopped = std::make_shared<bool>();
    job.start(
        [root, folder, paths, copies, label, refusal, report, isStopped,
         open = job.openProgress()] {
            const auto progress = open({}, label, static_cast<int>(paths.size()));
            MemoryLock lock(root);
            if (!lock.take() && lock.isHeldByOther())
                *refusal = lock.message();
            else
                *report = copies->copy(paths, folder, *progress);
            *isStopped = progress->wasCanceled();
        },
        [this, paths, refusal, report, isStopped] {
            tellCopied(*report, ShownNames(paths), *isStopped, *refusal);
        });
}

void MemorySongWork::tellCopied(const FileCopier::Report &report, const ShownNames &names,
                                bool isStopped, const QString &refusal)
{
    if (!refusal.isEmpty()) {
        m_window.showMessage({});
        warn(refusal);
        return;
    }
    QString text = tr("%n song copiate sul computer.", "", report.copied);
    if (!report.skipped.isEmpty())
        text += QLatin1Char(' ') +
                tr("%n c'erano già e restano.", "", static_cast<int>(report.skipped.size()));
    if (isStopped)
        text += QLatin1Char(' ') + tr("La copia è stata interrotta.");
    m_window.showMessage(text);
    if (!report.failed.isEmpty())
        warn(text + QLatin1Char('\n') +
                 tr("%n song non sono state copiate.", "", static_cast<int>(report.failed.size())),
             report.failedLines(names));
}

void MemorySongWork::show(qsizetype song)
{
    if (!m_care.isThere())
        return;
    const QString folder = QFileInfo(m_window.contents()->songs().at(song).info.fullPath).path();
    if (!QFileInfo(folder).isDir() || !QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        warn(tr("Non è stato possibile aprire la cartella %1.").arg(folder));
}

void MemorySongWork::warn(const QString &text, const QStringList &details)
{
    QMessageBox box(QMessageBox::Warning, tr("Memoria"), text, QMessageBox::Ok, &m_window);
    box.setTextFormat(Qt::PlainText);
    if (details.size() == 1)
        box.setInformativeText(details.constFirst());
    else if (!details.isEmpty())
        box.setDetailedText(details.join(QLatin1Char('\n')));
    box.exec();
}
