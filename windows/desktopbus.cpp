#include "windows/desktopbus.h"

#ifdef KAVENA_SESSION_BUS
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QFileInfo>
#include <QGuiApplication>
#include <QVariantMap>

namespace
{

/**
 * False where asking for the bus would make one: the library of the bus starts a daemon when the
 * desktop has none.
 */
bool hasSessionBus()
{
    const QString ofTheSystem = qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR") && QFileInfo::exists(ofTheSystem));
}

void send(const QDBusMessage &message)
{
    if (hasSessionBus())
        QDBusConnection::sessionBus().send(message);
}

void sendLauncherEntry(const QVariantMap &properties)
{
    QDBusMessage update = QDBusMessage::createSignal(
        QStringLiteral("/org/kavena/KavenaPC"), QStringLiteral("com.canonical.Unity.LauncherEntry"),
        QStringLiteral("Update"));
    update << QStringLiteral("application://%1.desktop").arg(QGuiApplication::desktopFileName())
           << properties;
    send(update);
}

} // namespace

void desktopbus::notify(const QString &title, const QString &text)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"),
        QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    constexpr uint nothingReplaced = 0;
    constexpr int asLongAsUsual = -1;
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QGuiApplication::desktopFileName()}};
    call << QCoreApplication::translate("MainWindow", "Kavena PC") << nothingReplaced
         << QStringLiteral("kavena-pc") << title << text.toHtmlEscaped() << QStringList() << hints
         << asLongAsUsual;
    send(call);
}

void desktopbus::showProgress(double done)
{
    sendLauncherEntry(
        {{QStringLiteral("progress"), done}, {QStringLiteral("progress-visible"), true}});
}

void desktopbus::hideProgress()
{
    sendLauncherEntry({{QStringLiteral("progress-visible"), false}});
}

#else

void desktopbus::notify(const QString &, const QString &) {}
void desktopbus::showProgress(double) {}
void desktopbus::hideProgress() {}

#endif
