#include "windows/catalogueadding.h"

#include "library/cataloguetsv.h"
#include "library/userfile.h"
#include "windows/filelistdialog.h"
#include "windows/shownprogress.h"

#include <QMessageBox>
#include <QSet>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{

void warnPlainly(const QString &title, const QString &text, QWidget *parent)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

} // namespace

bool CatalogueAdding::isUsable(const OwnCatalogue &catalogue, QWidget *parent)
{
    if (catalogue.problem().isEmpty())
        return true;
    warnPlainly(tr("Il mio catalogo"),
                catalogue.problem() + QStringLiteral("\n\n") + catalogue.path(), parent);
    return false;
}

std::optional<QStringList> CatalogueAdding::addSongs(OwnCatalogue &catalogue,
                                                     const QStringList &songs, QWidget *parent)
{
    SongEntries read;
    {
        Progress *shown = nullptr;
        ShownProgress progress(shown, tr("Il mio catalogo"), tr("Leggo le song..."),
                               static_cast<int>(songs.size()), parent);
        read = SongEntries::read(songs, progress);
    }
    if (read.isStopped)
        return std::nullopt;
    tellFailures(read.failures, parent);
    const auto names = put(catalogue, read.entries, parent);
    if (!names)
        return std::nullopt;
    const QSet<QString> added(names->cbegin(), names->cend());
    QStringList paths;
    for (qsizetype i = 0; i < read.entries.size(); ++i) {
        if (added.contains(read.entries.at(i).filename))
            paths.append(read.paths.at(i));
    }
    return paths;
}

std::optional<qsizetype> CatalogueAdding::importTable(OwnCatalogue &catalogue, const QString &path,
                                                      QWidget *parent)
{
    const UserFile::Reading file = UserFile::read(path, CatalogueTsv::mostBytes);
    const CatalogueTsv table = CatalogueTsv::parse(file.bytes);
    QString problem = file.problem;
    if (problem.isEmpty() && table.entries.isEmpty() && table.problems.isEmpty())
        problem = tr("Il file non contiene voci.");
    if (!problem.isEmpty()) {
        warnPlainly(tr("Il mio catalogo"), problem, parent);
        return std::nullopt;
    }
    QList<SongEntries::Failure> failures;
    for (const QString &line : table.problems)
        failures.append({path, line});
    tellFailures(failures, parent);
    const auto names = put(catalogue, table.entries, parent);
    return names ? std::optional<qsizetype>(names->size()) : std::nullopt;
}

std::optional<QStringList>
CatalogueAdding::put(OwnCatalogue &catalogue, const QList<SongsDbRecord> &entries, QWidget *parent)
{
    if (entries.isEmpty())
        return std::nullopt;
    catalogue.openOrMake();
    if (!isUsable(catalogue, parent))
        return std::nullopt;
    QStringList names;
    for (const SongsDbRecord &entry : entries)
        names.append(entry.filename);
    const QStringList known = catalogue.known(names);
    // Without them nobody could be asked before they are replaced.
    if (!isUsable(catalogue, parent))
        return std::nullopt;
    QList<SongsDbRecord> wanted = entries;
    if (!known.isEmpty()) {
        const auto answer = QMessageBox::question(
            parent, tr("Il mio catalogo"),
            tr("%n voci sono già nel catalogo. Sostituirle?", nullptr,
               static_cast<int>(known.size())),
            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::No);
        if (answer == QMessageBox::Cancel)
            return std::nullopt;
        if (answer == QMessageBox::No) {
            const QSet<QString> kept(known.cbegin(), known.cend());
            wanted.clear();
            std::copy_if(
                entries.cbegin(), entries.cend(), std::back_inserter(wanted),
                [&kept](const SongsDbRecord &entry) { return !kept.contains(entry.filename); });
        }
    }
    if (catalogue.put(wanted)) {
        names.clear();
        for (const SongsDbRecord &entry : std::as_const(wanted))
            names.append(entry.filename);
        return names;
    }
    warnPlainly(tr("Il mio catalogo"), OwnCatalogue::problem(OwnCatalogue::State::Unwritable),
                parent);
    return std::nullopt;
}

void CatalogueAdding::tellFailures(const QList<SongEntries::Failure> &failures, QWidget *parent)
{
    if (failures.isEmpty())
        return;
    QList<FileListDialog::Line> lines;
    for (const SongEntries::Failure &failure : failures)
        lines.append({failure.path, failure.reason});
    FileListDialog(tr("Il mio catalogo"), tr("&Non aggiunto al catalogo:"), lines, parent).exec();
}
