// Start of the command line.
#include "cli/interrupt.h"
#include "cli/language.h"
#include "cli/program.h"
#include "storage/standardhandles.h"

#include <QCoreApplication>

#include <cstdlib>

namespace
{

/** Diagnostics are for the windows' log; standard error belongs to the user. */
void discard(QtMsgType type, const QMessageLogContext &, const QString &)
{
    if (type == QtFatalMsg)
        std::abort();
}

} // namespace

int main(int argc, char *argv[])
{
    fillStandardHandles();
    qInstallMessageHandler(&discard);
    interrupt::catchSignals();
    QList<QByteArray> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QByteArray(argv[i]));

    const QCoreApplication application(argc, argv);
    const Language language;
    return static_cast<int>(Program::run(arguments));
}
