// What each command can use. Each command is a class of its own with a function run().
#pragma once

#include "cli/exitstatus.h"
#include "cli/request.h"
#include "cli/terminal.h"
#include "cli/writer.h"

struct CommandContext {
    const Request &request;
    Terminal &terminal; ///< failures, questions and progress
    Writer &writer;     ///< the data, in the form that the user wants
};

class Command
{
public:
    explicit Command(const CommandContext &context)
        : m_request(context.request)
        , m_terminal(context.terminal)
        , m_writer(context.writer)
    {
    }
    virtual ~Command() = default;
    Q_DISABLE_COPY_MOVE(Command)

    virtual ExitStatus run() = 0;

protected:
    const Request &m_request;
    Terminal &m_terminal;
    Writer &m_writer;
};
