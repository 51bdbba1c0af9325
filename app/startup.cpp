#include "app/startup.h"

#include "app/messagehandler.h"
#include "library/branding.h"
#include "library/settings.h"
#include "library/version.h"
#include "storage/diagnostics.h"
#include "windows/translation.h"

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

void Startup::setUpTranslation()
{
    if (m_language == noLanguage) {
        m_language = branding().firstLanguage();
        m_settings.setValue(settings::language, m_language);
    }
    translation::use(m_language);
}
