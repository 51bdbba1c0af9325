// Reads the arguments of the command line.
#pragma once

#include "cli/request.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>

#include <string>
#include <vector>

class Arguments
{
    Q_DECLARE_TR_FUNCTIONS(Arguments)

public:
    /**
     * What the arguments ask for, and what is wrong with them; with an error only the request's
     * command is set.
     */
    struct Result {
        Request request;
        QString error; ///< a sentence for the user; empty when the request can be carried out
    };

    /**
     * Reads the arguments behind the program's name. File names may hold any bytes; what stands
     * behind "--" is always a file name.
     */
    static Result read(const QList<QByteArray> &arguments);

    /** The words of a command, such as "index update"; empty for None. */
    static QString words(Request::Command command);

private:
    class Grammar;

    static QString flagWithValue(const Grammar &grammar, const QList<QByteArray> &arguments);
    static QString parse(Grammar &grammar, std::vector<std::string> reversed);
    static QString readValues(const Grammar &grammar, Request &request);
    static QString whatIsWrong(const Request &request);
};
