#include "windows/confirmation.h"

#include "windows/nocopyrightdialog.h"

#include <QApplication>
#include <QMessageBox>

namespace
{

Answer run(NoCopyrightDialog &dialog)
{
    switch (dialog.exec()) {
    case NoCopyrightDialog::YesAll:
        return Answer::YesToAll;
    case NoCopyrightDialog::No:
        return Answer::No;
    case NoCopyrightDialog::NoAll:
        return Answer::NoToAll;
    default:
        return Answer::Yes;
    }
}

} // namespace

Answer confirmation::askToChange(const QString &fileName)
{
    NoCopyrightDialog dialog;
    dialog.setFilename(fileName);
    return run(dialog);
}

Answer confirmation::askToReplace(const QString &target)
{
    return ask(target, QCoreApplication::translate("MainWindow", "esiste già, vuoi sostituirlo?"));
}

Answer confirmation::ask(const QString &fileName, const QString &message)
{
    NoCopyrightDialog dialog;
    dialog.setFilename(fileName);
    dialog.setMessage(message);
    return run(dialog);
}

bool confirmation::askToGoOnWithoutHistory(const QString &reason)
{
    const QString question =
        reason + QStringLiteral("\n\n") +
        QCoreApplication::translate("History", "Continuare senza cronologia? Le modifiche non "
                                               "potranno essere annullate.");
    return QMessageBox::question(
               QApplication::activeWindow(), QCoreApplication::translate("History", "Cronologia"),
               question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}
