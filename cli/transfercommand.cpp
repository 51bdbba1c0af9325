#include "cli/transfercommand.h"

#include "cli/songpaths.h"
#include "formats/songnames.h"
#include "library/companion.h"
#include "library/unreadablefile.h"

#include <QFileInfo>
#include <QSet>

namespace
{

/** The answers that the options give, else the terminal's user; messages go to the terminal. */
class TransferAnswers : public TransferUser
{
public:
    TransferAnswers(const Request &request, Terminal &terminal, QString folder)
        : m_request(request)
        , m_terminal(terminal)
        , m_folder(std::move(folder))
    {
    }

    QString chooseFolder(const QString &, const QString &) override { return m_folder; }

    Answer askReplace(const QString &target) override
    {
        return m_terminal.ask(
            target, QCoreApplication::translate("MainWindow", "esiste già, vuoi sostituirlo?"),
            "--replace", m_request.replace);
    }

    Answer askRename(const QString &path, const QString &message) override
    {
        return m_terminal.ask(path, message, "--rename", m_request.rename);
    }

    bool askAnyway(const QString &, const QString &question) override
    {
        const Answer answer = m_terminal.ask(m_folder, question, nullptr, std::nullopt);
        return answer == Answer::Yes || answer == Answer::YesToAll;
    }

    void warn(const QString &, const QString &text) override { m_terminal.refuse(m_folder, text); }

    // Each failure is named; nothing is printed when all went well.
    void inform(const QString &, const QString &) override {}
    void showFailure(const QString &, const QString &) override {}

    void tellCounts(const QString &, const QString &text, const QStringList &failed,
                    const QStringList &skipped) override
    {
        for (const QString &song : failed)
            m_terminal.fail(song);
        for (const QString &song : skipped)
            m_terminal.note(song);
        m_terminal.note(text.split(QLatin1Char('\n')).join(QStringLiteral(". ")));
    }

private:
    const Request &m_request;
    Terminal &m_terminal;
    const QString m_folder;
};

} // namespace

ExitStatus TransferCommand::run()
{
    const std::optional<QString> folder = SongPaths::folder(m_request.to, m_terminal);
    if (!folder)
        return ExitStatus::NothingDone;
    std::optional<QStringList> songs = SongPaths::songs(m_request, m_terminal);
    if (songs)
        refuseOtherFiles(*songs);
    if (!songs || songs->isEmpty())
        return m_terminal.failures() > 0 ? ExitStatus::WithFailures : ExitStatus::NothingDone;

    TransferAnswers answers(m_request, m_terminal, *folder);
    Transfer transfer(answers, m_terminal.progressOpener());
    transfer.setReadBack(m_request.verify);
    return m_request.dryRun || m_request.inLine
               ? runPlan(transfer, answers, *songs)
               : statusOf(transfer.transferFiles(*songs), transfer);
}

/** Takes away what is no song. Karaoke pictures go with their song without being named. */
void TransferCommand::refuseOtherFiles(QStringList &songs)
{
    QSet<QString> pictures;
    for (const QString &song : std::as_const(songs))
        pictures.insert(companionOf(song));
    songs.removeIf([&](const QString &path) {
        if (songnames::isSongName(path))
            return false;
        if (!pictures.contains(path))
            m_terminal.fail(path, QFileInfo::exists(path)
                                      ? tr("Non è una song e non viene copiato")
                                      : UnreadableFile::examine(path).reasonText());
        return true;
    });
}

ExitStatus TransferCommand::runPlan(Transfer &transfer, TransferUser &user,
                                    const QStringList &songs)
{
    std::optional<TransferPlan> plan = transfer.planTransfer(songs, m_request.inLine);
    if (!plan) {
        m_terminal.isStopped();
        return ExitStatus::NothingDone;
    }
    choose(*plan);
    if (m_request.inLine && (!m_request.dryRun || m_request.remove))
        askToRemove(*plan);
    if (m_request.dryRun)
        return tellPlan(*plan);
    const QString missing = whatIsMissing(*plan);
    if (!missing.isEmpty() && !user.askAnyway({}, missing))
        return ExitStatus::NothingDone;
    return statusOf(transfer.carryOut(*plan), transfer);
}

/** The remedies that the options decide about. */
void TransferCommand::choose(TransferPlan &plan) const
{
    for (TransferPlan::Item &item : plan.items) {
        if (item.state == TransferPlan::State::Differs && !m_request.replace.value_or(true))
            item.remedy = TransferPlan::Remedy::Skip;
    }
}

/** Names the songs that are not in the list, and ticks them if that is wanted. */
void TransferCommand::askToRemove(TransferPlan &plan)
{
    using State = TransferPlan::State;
    const int count = plan.count(State::Remove);
    if (count == 0)
        return;
    if (!m_request.dryRun) {
        for (const TransferPlan::Item &item : std::as_const(plan.items)) {
            if (item.state == State::Remove)
                m_writer.planned(item);
        }
    }
    m_terminal.note(tr("Song della memoria che non sono nell'elenco: %1").arg(count));
    if (!m_request.remove) {
        m_terminal.note(tr("Restano; %1 le rimuove.").arg(QStringLiteral("--remove")));
        return;
    }
    // Songs that could not even be listed may be among them.
    if (m_terminal.failures() > 0) {
        m_terminal.fail(tr("Nessuna song viene rimossa, perché l'elenco non è completo."));
        return;
    }
    if (!m_request.dryRun && m_terminal.canAsk()) {
        const Answer answer =
            m_terminal.ask(plan.folder, tr("Rimuovere queste song dalla memoria?"), nullptr, {});
        if (answer != Answer::Yes && answer != Answer::YesToAll)
            return;
    }
    for (TransferPlan::Item &item : plan.items) {
        if (item.state == State::Remove)
            item.remedy = TransferPlan::Remedy::Remove;
    }
}

/** Prints the plan; what cannot be done is a failure. */
ExitStatus TransferCommand::tellPlan(const TransferPlan &plan)
{
    for (const TransferPlan::Item &item : plan.items) {
        m_writer.planned(item);
        if (item.state == TransferPlan::State::Unreadable ||
            item.state == TransferPlan::State::TooLong)
            m_terminal.fail(item.path, item.reason);
        else
            m_terminal.countDone();
    }
    m_writer.planSum(plan);
    const QString missing = whatIsMissing(plan);
    if (!missing.isEmpty())
        m_terminal.fail(plan.folder, missing);
    return m_terminal.status();
}

/** What the memory or the player has no room for, as a question; empty when nothing. */
QString TransferCommand::whatIsMissing(const TransferPlan &plan)
{
    if (!plan.fits())
        return Transfer::missingRoomText(plan.bytesNeeded() - plan.freeBytes);
    return plan.canBeIndexed() ? QString()
                               : tr("Sono più song di quante il player ne può trovare: %1. "
                                    "Si vuole procedere comunque?")
                                     .arg(plan.songsAfter());
}

/** The index alone, which each transfer brings up to date at its end, is not what was asked for. */
ExitStatus TransferCommand::statusOf(Transfer::Outcome outcome, const Transfer &transfer)
{
    switch (outcome) {
    case Transfer::Outcome::NotStarted:
        return ExitStatus::NothingDone;
    case Transfer::Outcome::Complete:
        if (transfer.changedSongs() > 0)
            m_terminal.countDone();
        return m_terminal.status();
    case Transfer::Outcome::Incomplete:
        break;
    }
    return ExitStatus::WithFailures;
}
