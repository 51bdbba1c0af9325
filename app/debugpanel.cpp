#include "app/debugpanel.h"

#include "app/songlist.h"
#include "formats/metasong.h"
#include "library/database.h"
#include "library/settings.h"
#include "storage/diagnostics.h"
#include "windows/dataeditdialog.h"
#include "windows/usersongsreltablemodel.h"

#include "ui_mainwindow.h"

#include <QSettings>

#include <functional>

namespace
{

/** Opens the row's song, lets it be changed and saves it to the file, not to its own. */
void saveTestCopy(const SongList &songs, int row, const QString &fileName,
                  const std::function<void(MetaSong &song)> &change)
{
    MetaSong song;
    if (!song.importFile(songs.model().fileName(row))) {
        logDebug() << "Error!";
        return;
    }
    change(song);
    logDebug() << "Saving to file:" << fileName;
    if (!song.saveToFile(fileName))
        logDebug() << "Error!";
}

} // namespace

DebugPanel::DebugPanel(const Ui::MainWindow &form, QSettings &settings)
    : m_form(form)
    , m_settings(settings)
{
}

void DebugPanel::hide()
{
    m_form.debugGroupBox->hide();
    m_form.debugKravoGroupBox->hide();
}

void DebugPanel::toggle()
{
    m_form.debugGroupBox->setVisible(m_form.debugGroupBox->isHidden());
}

void DebugPanel::showLogSwitches()
{
    m_form.dbgLogEnableCheckBox->setChecked(m_settings.value(settings::logEnabled, false).toBool());
    m_form.dbgLogClearCheckBox->setChecked(m_settings.value(settings::logClear, false).toBool());
}

void DebugPanel::setLogEnabled(bool enabled)
{
    m_settings.setValue(settings::logEnabled, enabled);
}

void DebugPanel::setLogClear(bool clear)
{
    m_settings.setValue(settings::logClear, clear);
}

void DebugPanel::runDataDialog(DataEditDialog &dialog, const Database &database)
{
    dialog.setGenresCombo(database.genresList());
    dialog.setArtistsCombo(database.artistsList());
    if (dialog.exec() == QDialog::Accepted)
        logDebug() << "Accettato";
    else
        logDebug() << "Rifiutato";
}

void DebugPanel::saveWithMarker(const SongList &songs) const
{
    const int row = songs.currentRow();
    logDebug() << "[MainWindow] Adding marker to row:" << row;
    saveTestCopy(songs, row, QStringLiteral("test_addmarker.bin"), [this](MetaSong &song) {
        song.dbgAddMarker(m_form.dbgMarkerTextLineEdit->text().trimmed(),
                          static_cast<unsigned short>(m_form.dbgMarkerBarSpinBox->value()));
    });
}

void DebugPanel::saveUnchanged(const SongList &songs)
{
    const int row = songs.currentRow();
    logDebug() << "[MainWindow] Saving row:" << row;
    saveTestCopy(songs, row, QStringLiteral("test_save.bin"), [](MetaSong &) {});
}
