// Ejects memories through UDisks2, the service of Linux desktops.
#pragma once

#include "devindex/eject.h"

/**
 * Asks over the system bus: the file system is unmounted, then its drive is powered off where it
 * can be, else ejected where it can be.
 */
class UdisksEjector : public Ejector
{
public:
    bool isAvailable() const override;
    Result eject(const QString &mountPoint) override;
};
