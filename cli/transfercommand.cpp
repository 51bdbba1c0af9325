#include "cli/transfercommand.h"

#include "cli/songpaths.h"
#include "devindex/transfer.h"

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
                    const QStringList &) override
    {
        for (const QString &song : failed)
            m_terminal.fail(song);
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
    const std::optional<QStringList> songs = SongPaths::songs(m_request, m_terminal);
    if (!songs || songs->isEmpty())
        return m_terminal.failures() > 0 ? ExitStatus::WithFailures : ExitStatus::NothingDone;

    TransferAnswers answers(m_request, m_terminal, *folder);
    switch (Transfer(answers, m_terminal.progressOpener()).transferFiles(*songs)) {
    case Transfer::Outcome::NotStarted:
        return ExitStatus::NothingDone;
    case Transfer::Outcome::Complete:
        m_terminal.countDone();
        return m_terminal.status();
    case Transfer::Outcome::Incomplete:
        break;
    }
    return ExitStatus::WithFailures;
}
