// A system bus of a test's own, with a mock of the service that ejects memories.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

/** Must stand before anything asks for the system bus: the program finds it by its environment. */
class PrivateBus
{
public:
    PrivateBus()
    {
        const QString address =
            QStringLiteral("unix:path=") + m_folder.filePath(QStringLiteral("bus"));
        QFile configuration(m_folder.filePath(QStringLiteral("bus.conf")));
        // No folders of services: nothing is started that the test did not start.
        const QByteArray rules =
            "<busconfig><listen>" + address.toUtf8() +
            "</listen><policy context=\"default\"><allow send_destination=\"*\" "
            "eavesdrop=\"true\"/><allow eavesdrop=\"true\"/><allow own=\"*\"/>"
            "</policy></busconfig>";
        if (!configuration.open(QFile::WriteOnly) || configuration.write(rules) != rules.size())
            qFatal("cannot write the configuration of the bus");
        configuration.close();
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--config-file=") + configuration.fileName(),
                        QStringLiteral("--nofork"), QStringLiteral("--print-address")});
        if (!m_daemon.waitForStarted() || !m_daemon.waitForReadyRead())
            qFatal("dbus-daemon does not start: %s", m_daemon.readAllStandardError().constData());
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", address.toUtf8());
    }
    ~PrivateBus()
    {
        stopService();
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(PrivateBus)

    /** Starts the mock with these parameters (see mockudisks.py); true when it answers. */
    template <typename Answers>
    bool startService(const QString &script, const QJsonObject &parameters, const Answers &answers)
    {
        stopService();
        QFile::remove(log());
        m_service.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_service.start(
            QStringLiteral("/usr/bin/python3"),
            {QStringLiteral("-m"), QStringLiteral("dbusmock"), QStringLiteral("--system"),
             QStringLiteral("--logfile"), log(), QStringLiteral("--template"), script,
             QStringLiteral("--parameters"),
             QString::fromUtf8(QJsonDocument(parameters).toJson(QJsonDocument::Compact))});
        return m_service.waitForStarted() && QTest::qWaitFor(answers, 20000);
    }

    void stopService()
    {
        m_service.kill();
        m_service.waitForFinished();
    }

    /** The methods that were called, in their order, but for the one that lists what there is. */
    QStringList calls() const
    {
        QStringList methods;
        QFile file(log());
        if (!file.open(QFile::ReadOnly))
            return methods;
        const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
        for (const QString &line : lines) {
            for (const char *method : {"Unmount", "PowerOff", "Eject"}) {
                // A line more tells the error that a call was answered with.
                if (line.contains(QLatin1Char(' ') + QLatin1String(method) + QLatin1Char(' ')) &&
                    !line.contains(QLatin1String(" raised: ")))
                    methods.append(QLatin1String(method));
            }
        }
        return methods;
    }

private:
    QString log() const { return m_folder.filePath(QStringLiteral("calls")); }

    QTemporaryDir m_folder;
    QProcess m_daemon;
    QProcess m_service;
};
