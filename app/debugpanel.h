// The panels for finding faults, which this branding hides.
#pragma once

#include <QString>

QT_BEGIN_NAMESPACE
class QSettings;
namespace Ui
{
class MainWindow;
}
QT_END_NAMESPACE

class Database;
class DataEditDialog;
class MetaSong;
class SongList;

/** What the panels' buttons and boxes do; errors are written to the log only. */
class DebugPanel
{
public:
    /** Form and settings must outlive the object. */
    DebugPanel(const Ui::MainWindow &form, QSettings &settings);

    void hide();

    /** Shows the panel of the buttons if it is hidden, and hides it otherwise. */
    void toggle();

    /** Checks the stored switches of the log; for the start of the program. */
    void showLogSwitches();

    /** Stores whether there is a log, from the next start on. */
    void setLogEnabled(bool enabled);

    /** Stores whether each start begins a new log. */
    void setLogClear(bool clear);

    /** Runs the dialog for song data with the catalogue's choices and logs how it ended. */
    static void runDataDialog(DataEditDialog &dialog, const Database &database);

    /** Saves the current song with the entered marker to a test file in the working folder. */
    void saveWithMarker(const SongList &songs) const;

    /** Saves the current song unchanged to a test file in the working folder. */
    static void saveUnchanged(const SongList &songs);

private:
    const Ui::MainWindow &m_form;
    QSettings &m_settings;
};
