#include "app/tagpreparing.h"

#include "app/actiongate.h"
#include "app/songlist.h"
#include "formats/metasong.h"
#include "library/keepalive.h"
#include "library/tagremarks.h"
#include "windows/busystate.h"
#include "windows/preparetagsdialog.h"
#include "windows/shownprogress.h"
#include "windows/usersongsreltablemodel.h"

#include "ui_mainwindow.h"

#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

TagPreparing::TagPreparing(QMainWindow *window, const Ui::MainWindow &form, SongList &songs,
                           BusyState &busy, ActionGate &gate, OpenHistory openHistory)
    : QObject(window)
    , m_window(window)
    , m_songs(songs)
    , m_busy(busy)
    , m_openHistory(std::move(openHistory))
{
    connect(form.actionPrepareTags, &QAction::triggered, this, &TagPreparing::prepareList);
    connect(&songs, &SongList::tagsRequested, this, &TagPreparing::prepareList);
    form.actionPrepareTags->setEnabled(true);
    gate.add(form.actionPrepareTags);
    gate.setWanted(form.actionPrepareTags, true);
}

void TagPreparing::prepareList()
{
    const BusyGuard busy(m_busy);
    QStringList paths;
    QSet<QString> known; // the list may hold a file twice
    for (int row = 0; row < m_songs.model().goodRowCount(); ++row) {
        const QString path = m_songs.model().fileName(row);
        if (m_songs.model().tagTroubles(row) != TagTroubles() && !known.contains(path)) {
            known.insert(path);
            paths.append(path);
        }
    }
    if (paths.isEmpty())
        QMessageBox::information(m_window, tr("Tag MP3"),
                                 tr("Il player può mostrare i testi di tutti i file MP3 della "
                                    "lista."));
    else
        prepare(paths);
}

bool TagPreparing::offerBeforeEdit(int row)
{
    const TagTroubles troubles = m_songs.model().tagTroubles(row);
    const QString path = m_songs.model().fileName(row);
    if (troubles == TagTroubles() || m_editedAsTheyAre.contains(path))
        return true;
    QMessageBox box(
        QMessageBox::Question, tr("Tag MP3"),
        tr("%1.\n\nPreparare prima il tag per il player?").arg(tagremarks::songText(troubles)),
        QMessageBox::Cancel, m_window);
    const auto *const preparing = box.addButton(tr("&Prepara..."), QMessageBox::AcceptRole);
    const auto *const asItIs =
        box.addButton(tr("&Modifica così com'è"), QMessageBox::DestructiveRole);
    box.setTextFormat(Qt::PlainText);
    box.exec();
    if (box.clickedButton() == asItIs) {
        m_editedAsTheyAre.insert(path);
        return true;
    }
    return box.clickedButton() == preparing && prepare({path});
}

/** True when something was written. */
bool TagPreparing::prepare(const QStringList &paths)
{
    QList<Mp3Preparation> preparations;
    {
        Progress *shown = nullptr;
        ShownProgress progress(shown, tr("Tag MP3"), tr("Leggo i tag..."),
                               static_cast<int>(paths.size()), m_window);
        int done = 0;
        for (const QString &path : paths) {
            if (progress.wasCanceled())
                return false;
            if (const auto preparation = Mp3Preparation::of(path))
                preparations.append(*preparation);
            progress.setValue(++done);
            KeepAlive::processEventsNow();
        }
    }
    PrepareTagsDialog dialog(preparations, m_openHistory, m_window);
    bool isWritten = false;
    connect(&dialog, &PrepareTagsDialog::written, this,
            [this, &isWritten](const QStringList &written) {
                isWritten = true;
                showFiles(written);
            });
    dialog.exec();
    return isWritten;
}

/** Their rows show what the files hold now. */
void TagPreparing::showFiles(const QStringList &paths)
{
    const QSet<QString> written(paths.cbegin(), paths.cend());
    UserSongsRelTableModel &model = m_songs.model();
    for (int row = 0; row < model.goodRowCount(); ++row) {
        const QString path = model.fileName(row);
        MetaSong song;
        if (!written.contains(path) || !song.importFile(path))
            continue;
        SongInfo info;
        song.getSongInfo(info);
        model.updateRow(row, info);
        model.setSaveFailure(row, SaveFailure::None);
    }
    m_songs.fitColumns();
}
