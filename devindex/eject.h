// Makes a memory ready to be unplugged.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <memory>

/** What the operating system does with a memory that is to be unplugged. */
class Ejector
{
public:
    enum class Outcome {
        Ejected,   ///< the system said so
        NoService, ///< there is nobody to ask
        NoDevice,  ///< the service knows of no memory that is mounted there
        NotPermitted,
        Busy,
        StillOn, ///< the memory was unmounted, but its drive could not be switched off
        Failed
    };

    struct Result {
        Outcome outcome = Outcome::Failed;
        QString text; ///< the system's own words; may be empty
    };

    Ejector() = default;
    virtual ~Ejector() = default;
    Q_DISABLE_COPY_MOVE(Ejector)

    /** True when there is somebody to ask; may take a moment to find out. */
    virtual bool isAvailable() const = 0;

    /** Waits for the answer, which may take as long as a slow memory needs for its last bytes. */
    virtual Result eject(const QString &mountPoint) = 0;

    /** The one of this operating system. */
    static std::unique_ptr<Ejector> ofSystem();
};

/** Ejects one memory. The calls wait; where windows are open they belong on another thread. */
class Eject
{
    Q_DECLARE_TR_FUNCTIONS(Eject)

public:
    struct Report {
        bool isEjected = false; ///< the memory may be unplugged
        QString text;           ///< whole sentences for the user
    };

    /** The ejector must outlive the object. */
    explicit Eject(Ejector &ejector);

    /**
     * Brings everything to the memory and has the system eject it. Refused for a folder that is no
     * mounted memory itself in one of the mount directories (other mount points are the system's),
     * and while a program of ours writes to the memory.
     */
    Report run(const QString &root);

private:
    static QString sentence(const Ejector::Result &result, const QString &root);

    Ejector &m_ejector;
};

/**
 * The programs of this user that use something below the folder, as "name (process)", as far as
 * the system tells; at most ten.
 */
QStringList programsUsing(const QString &folder);
