// Ejects memories through diskutil, the tool of macOS.
#pragma once

#include "devindex/eject.h"

class DiskutilEjector : public Ejector
{
public:
    /** The tool's name or path. */
    explicit DiskutilEjector(QString program = QStringLiteral("diskutil"));

    bool isAvailable() const override;
    Result eject(const QString &mountPoint) override;

private:
    const QString m_program;
};
