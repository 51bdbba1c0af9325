// The program behind main().
#pragma once

#include "cli/exitstatus.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>

class Program
{
    Q_DECLARE_TR_FUNCTIONS(Program)

public:
    /** Carries out what the arguments behind the program's name ask for. */
    static ExitStatus run(const QList<QByteArray> &arguments);
};
