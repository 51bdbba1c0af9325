#include "cli/terminal.h"

#include "cli/givenpath.h"
#include "cli/interrupt.h"
#include "storage/shownname.h"

#include <QElapsedTimer>

#include <array>
#include <csignal>
#include <cstdio>
#include <sys/select.h>
#include <unistd.h>

namespace
{

/** Goes to the line's beginning and clears it. */
constexpr char clearLine[] = "\r\x1b[K";

void writeError(const QByteArray &bytes)
{
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stderr);
    std::fflush(stderr);
}

/** Waits for the user; false when a signal ends the wait, or has come before it. */
bool waitForInput()
{
    sigset_t stops;
    sigset_t before;
    sigemptyset(&stops);
    sigaddset(&stops, SIGINT);
    sigaddset(&stops, SIGTERM);
    // Let in only while it waits: one that came between the question and the wait would be missed.
    sigprocmask(SIG_BLOCK, &stops, &before);
    fd_set input;
    FD_ZERO(&input);
    FD_SET(STDIN_FILENO, &input);
    const bool isThere = !interrupt::isRequested() &&
                         pselect(STDIN_FILENO + 1, &input, nullptr, nullptr, nullptr, &before) > 0;
    sigprocmask(SIG_SETMASK, &before, nullptr);
    return isThere;
}

/** A line "label done/maximum" that is written over, at most ten times a second. */
class TerminalProgress : public Progress
{
public:
    TerminalProgress(bool isShown, QString label, int maximum)
        : m_isShown(isShown)
        , m_label(std::move(label))
        , m_maximum(maximum)
    {
    }

    ~TerminalProgress() override
    {
        if (m_sinceLast.isValid())
            writeError(clearLine);
    }
    Q_DISABLE_COPY_MOVE(TerminalProgress)

    void setMaximum(int steps) override { m_maximum = steps; }
    void updateProgress(int done) override { setValue(done); }
    bool wasCanceled() const override { return interrupt::isRequested(); }

    void setValue(int done) override
    {
        if (!m_isShown || (m_sinceLast.isValid() && !m_sinceLast.hasExpired(milliseconds)))
            return;
        m_sinceLast.start();
        QString line = m_label + QLatin1Char(' ') + QString::number(done);
        if (m_maximum > 0)
            line += QLatin1Char('/') + QString::number(m_maximum);
        writeError(clearLine + line.toUtf8());
    }

private:
    static constexpr int milliseconds = 100;

    const bool m_isShown;
    const QString m_label;
    int m_maximum;
    QElapsedTimer m_sinceLast;
};

} // namespace

Terminal::Terminal()
    : m_showsProgress(isatty(STDERR_FILENO) != 0)
    , m_canAsk(m_showsProgress && isatty(STDIN_FILENO) != 0)
{
}

void Terminal::fail(const QString &path, const QString &reason)
{
    ++m_failures;
    write(givenpath::shown(path) + QStringLiteral(": ") + reason);
}

void Terminal::fail(const QString &reason)
{
    ++m_failures;
    write(reason);
}

void Terminal::note(const QString &text)
{
    write(text);
}

ExitStatus Terminal::refuse(const QString &reason)
{
    write(reason);
    return ExitStatus::NothingDone;
}

ExitStatus Terminal::refuse(const QString &path, const QString &reason)
{
    return refuse(givenpath::shown(path) + QStringLiteral(": ") + reason);
}

bool Terminal::isStopped()
{
    if (interrupt::isRequested() && !m_isStopped) {
        m_isStopped = true;
        note(tr("Interrotto"));
    }
    return m_isStopped;
}

ExitStatus Terminal::status() const
{
    if (m_failures > 0 || (m_isStopped && m_done > 0))
        return ExitStatus::WithFailures;
    return m_done > 0 ? ExitStatus::Done : ExitStatus::NothingDone;
}

Answer Terminal::ask(const QString &path, const QString &question, const char *option,
                     std::optional<bool> decided)
{
    if (decided)
        return *decided ? Answer::YesToAll : Answer::NoToAll;
    if (!m_canAsk) {
        if (!m_toldNo.contains(QByteArray(option)))
            note(option == nullptr ? tr("Senza terminale la risposta è no: %1").arg(question)
                                   : tr("Senza terminale la risposta è no (%1 yes la cambia): %2")
                                         .arg(QString::fromUtf8(option), question));
        m_toldNo.insert(QByteArray(option));
        return Answer::NoToAll;
    }
    const QString yes = tr("s");
    const QString no = tr("n");
    const QString choices = tr("[%1 = sì, %2 = sì a tutti, %3 = no, %4 = no a tutti]")
                                .arg(yes, yes.toUpper(), no, no.toUpper());
    writeError(clearLine +
               onOneLine(givenpath::shown(path) + QStringLiteral(": ") + question).toUtf8() + ' ' +
               choices.toUtf8() + ' ');
    if (!waitForInput())
        return Answer::NoToAll;
    std::array<char, 4096> line{}; // a terminal gives no longer line
    const ssize_t size = read(STDIN_FILENO, line.data(), line.size());
    if (size <= 0)
        return Answer::NoToAll;
    const QString answer = QString::fromUtf8(line.data(), size).trimmed();
    if (answer == yes)
        return Answer::Yes;
    if (answer == yes.toUpper())
        return Answer::YesToAll;
    return answer == no.toUpper() ? Answer::NoToAll : Answer::No;
}

std::unique_ptr<Progress> Terminal::openProgress(const QString &, const QString &label, int maximum)
{
    return std::make_unique<TerminalProgress>(m_showsProgress, label, maximum);
}

OpenProgress Terminal::progressOpener()
{
    return [this](const QString &title, const QString &label, int maximum) {
        return openProgress(title, label, maximum);
    };
}

void Terminal::write(const QString &line)
{
    const QByteArray text = QByteArray("kavena: ") + onOneLine(line).toUtf8() + '\n';
    writeError(m_showsProgress ? clearLine + text : text);
}
