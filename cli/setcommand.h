// kavena set: the edit by hand.
#pragma once

#include "cli/command.h"
#include "formats/songinfo.h"
#include "storage/leftovers.h"

class SetCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(SetCommand)

public:
    using Command::Command;

    ExitStatus run() override;

private:
    void set(const QString &path);
    void tellCutTexts(const QString &path, const SongInfo &saved);

    Leftovers m_leftovers;
};
