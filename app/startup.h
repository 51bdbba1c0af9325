// What happens before the main window exists: settings, log and language.
#pragma once

#include <QSettings>
#include <QString>

class QTranslator;

/**
 * Reads the stored settings when it is created. The log is set up before the application object
 * exists, so that nothing that Qt reports is lost; the translation needs the application object.
 */
class Startup
{
public:
    /** From here on a write beyond the limit for file sizes fails and does not end the program. */
    Startup();

    /**
     * Installs the message handler that the settings ask for. With the log switched on, deletes the
     * old log when the settings say so, and writes the banner of this run.
     */
    void setUpLog() const;

    /**
     * Installs the interface language. A first run stores German, the default of this branding;
     * anything that is not German is English.
     */
    void setUpTranslation(QTranslator &program, QTranslator &qt);

private:
    QSettings m_settings;
    QString m_language;
    bool m_logEnabled;
    bool m_logClear;
};
