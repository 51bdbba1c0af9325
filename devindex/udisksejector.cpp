#include "devindex/udisksejector.h"

#include "storage/diagnostics.h"

#include <QByteArrayList>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QFile>
#include <QMap>
#include <QVariantMap>

namespace
{

using Interfaces = QMap<QString, QVariantMap>;
using Objects = QMap<QDBusObjectPath, Interfaces>;

const QString service = QStringLiteral("org.freedesktop.UDisks2");
const QString filesystemInterface = QStringLiteral("org.freedesktop.UDisks2.Filesystem");
const QString blockInterface = QStringLiteral("org.freedesktop.UDisks2.Block");
const QString driveInterface = QStringLiteral("org.freedesktop.UDisks2.Drive");

/** To tell what there is; every service answers that at once. */
constexpr int shortTimeout = 10'000;

/** A slow memory may have hundreds of megabytes left to write; a user may be asked first. */
constexpr int longTimeout = 600'000;

QDBusMessage call(const QString &path, const QString &interface, const QString &method,
                  const QVariantList &arguments, int timeout)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    return QDBusConnection::systemBus().call(message, QDBus::Block, timeout);
}

/** The options of a call that has none. */
QVariantList noOptions()
{
    return {QVariantMap()};
}

bool isMountedAt(const Interfaces &interfaces, const QByteArray &mountPoint)
{
    const QVariant points =
        interfaces.value(filesystemInterface).value(QStringLiteral("MountPoints"));
    if (points.metaType() != QMetaType::fromType<QDBusArgument>())
        return false;
    const auto argument = points.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("aay"))
        return false;
    const auto paths = qdbus_cast<QByteArrayList>(argument);
    return paths.contains(mountPoint) || paths.contains(mountPoint + '\0');
}

Ejector::Result failure(const QDBusMessage &reply)
{
    logWarning() << "[UdisksEjector::eject]" << reply.errorName() << reply.errorMessage();
    const QString name = reply.errorName();
    const auto is = [&name](const char *ending) {
        return name.endsWith(QLatin1Char('.') + QLatin1String(ending));
    };
    auto outcome = Ejector::Outcome::Failed;
    if (is("DeviceBusy"))
        outcome = Ejector::Outcome::Busy;
    else if (is("NotAuthorized") || is("NotAuthorizedCanObtain") || is("NotAuthorizedDismissed"))
        outcome = Ejector::Outcome::NotPermitted;
    else if (is("ServiceUnknown") || is("NoReply") || is("Disconnected") || is("NoServer"))
        outcome = Ejector::Outcome::NoService;
    return {outcome, reply.errorMessage()};
}

bool isError(const QDBusMessage &reply)
{
    return reply.type() != QDBusMessage::ReplyMessage;
}

} // namespace

bool UdisksEjector::isAvailable() const
{
    const QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected())
        return false;
    const QDBusConnectionInterface *const names = bus.interface();
    return names->isServiceRegistered(service) ||
           names->activatableServiceNames().value().contains(service);
}

Ejector::Result UdisksEjector::eject(const QString &mountPoint)
{
    qDBusRegisterMetaType<Interfaces>();
    qDBusRegisterMetaType<Objects>();
    if (!QDBusConnection::systemBus().isConnected())
        return {Outcome::NoService, {}};
    const QDBusMessage known = call(QStringLiteral("/org/freedesktop/UDisks2"),
                                    QStringLiteral("org.freedesktop.DBus.ObjectManager"),
                                    QStringLiteral("GetManagedObjects"), {}, shortTimeout);
    if (isError(known) || known.signature() != QLatin1String("a{oa{sa{sv}}}")) {
        Result result = failure(known);
        result.outcome = Outcome::NoService;
        return result;
    }
    const auto objects = qdbus_cast<Objects>(known.arguments().constFirst());
    const QByteArray wanted = QFile::encodeName(mountPoint);
    auto device = objects.cbegin();
    while (device != objects.cend() && !isMountedAt(device.value(), wanted))
        ++device;
    if (device == objects.cend())
        return {Outcome::NoDevice, {}};

    const QDBusMessage unmounted = call(device.key().path(), filesystemInterface,
                                        QStringLiteral("Unmount"), noOptions(), longTimeout);
    if (isError(unmounted))
        return failure(unmounted);

    const auto drivePath = device.value()
                               .value(blockInterface)
                               .value(QStringLiteral("Drive"))
                               .value<QDBusObjectPath>();
    const QVariantMap drive = objects.value(drivePath).value(driveInterface);
    QString method;
    if (drive.value(QStringLiteral("CanPowerOff")).toBool())
        method = QStringLiteral("PowerOff");
    else if (drive.value(QStringLiteral("Ejectable")).toBool())
        method = QStringLiteral("Eject");
    if (method.isEmpty())
        return {Outcome::Ejected, {}};
    const QDBusMessage off =
        call(drivePath.path(), driveInterface, method, noOptions(), longTimeout);
    if (isError(off))
        return {Outcome::StillOn, failure(off).text};
    return {Outcome::Ejected, {}};
}
