// kavena transfer: songs go onto a memory.
#pragma once

#include "cli/command.h"
#include "devindex/transfer.h"

class TransferCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(TransferCommand)

public:
    using Command::Command;

    ExitStatus run() override;

private:
    void refuseOtherFiles(QStringList &songs);
    ExitStatus runPlan(Transfer &transfer, TransferUser &user, const QStringList &songs);
    void choose(TransferPlan &plan) const;
    ExitStatus tellPlan(const TransferPlan &plan);
    void askToRemove(TransferPlan &plan);
    static QString whatIsMissing(const TransferPlan &plan);
    ExitStatus statusOf(Transfer::Outcome outcome, const Transfer &transfer);
};
