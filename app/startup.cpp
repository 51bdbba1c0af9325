#include "app/startup.h"

#include "app/messagehandler.h"
#include "app/translation.h"
#include "app/version.h"
#include "formats/diagnostics.h"
#include "library/settings.h"

#include <QByteArray>
#include <QFile>

#ifdef Q_OS_UNIX
#include <csignal>
#endif

namespace
{

// Stands for "never stored" and is no language, so that a first run is recognised.
const QString noLanguage = QStringLiteral("--");

void writeBanner()
{
    logDebug()
        << "|==============================================================================|";
    logDebug()
        << "V ========================  Log start  ======================================= V";
    logDebug() << "(c)K-Ravo Kavena PC";
    logDebug() << (QByteArray("Version:  ") + version::number).constData();
    logDebug()
        << (QByteArray("Build:    ") + version::buildDate + " - " + version::buildTime).constData();
    logDebug() << "";
}

} // namespace

Startup::Startup()
    : m_settings(settings::organisation, settings::application)
    , m_language(m_settings.value(settings::language, noLanguage).toString())
    , m_logEnabled(m_settings.value(settings::logEnabled, false).toBool())
    , m_logClear(m_settings.value(settings::logClear, false).toBool())
{
#ifdef Q_OS_UNIX
    // A file that reaches the user's size limit is a write that fails, not the end of the program.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

void Startup::setUpLog() const
{
    if (!m_logEnabled) {
        installSilentHandler();
        return;
    }
    const QString log = QStringLiteral("log.txt");
    if (m_logClear && QFile::exists(log))
        QFile::remove(log);
    installLogHandler();
    writeBanner();
}

void Startup::setUpTranslation(QTranslator &program, QTranslator &qt)
{
    if (m_language == noLanguage) {
        m_language = translation::german;
        m_settings.setValue(settings::language, m_language);
    }
    if (m_language == translation::german)
        translation::installGerman(program, qt);
    else
        translation::installEnglish(program);
}
