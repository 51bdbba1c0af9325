// What "--help" prints.
#pragma once

#include "cli/request.h"

#include <QCoreApplication>
#include <QString>

class Help
{
    Q_DECLARE_TR_FUNCTIONS(Help)

public:
    /** Examples, usage and options of a command; of the whole program for None. */
    static QString text(Request::Command command);
};
