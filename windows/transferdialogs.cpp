#include "windows/transferdialogs.h"

#include "windows/confirmation.h"
#include "windows/filechooser.h"
#include "windows/messagedetails.h"
#include "windows/transferplandialog.h"

#include <QMessageBox>
#include <QPushButton>

QString TransferDialogs::chooseFolder(const QString &title, const QString &startFolder)
{
    m_folder = filechooser::memoryFolder(m_parent, title, startFolder);
    filechooser::keepMemoryOf(m_folder);
    return m_folder;
}

Answer TransferDialogs::askReplace(const QString &target)
{
    return confirmation::askToReplace(target);
}

Answer TransferDialogs::askRename(const QString &path, const QString &message)
{
    return confirmation::ask(path, message);
}

bool TransferDialogs::askAnyway(const QString &title, const QString &question)
{
    return QMessageBox::question(m_parent, title, question, QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::No) == QMessageBox::Yes;
}

TransferUser::Review TransferDialogs::reviewPlan(TransferPlan &plan)
{
    TransferPlanDialog dialog(plan, TransferPlanDialog::Purpose::Warning, m_parent);
    dialog.exec();
    plan = dialog.plan();
    return dialog.review();
}

void TransferDialogs::warn(const QString &title, const QString &text)
{
    QMessageBox::warning(m_parent, title, text);
}

void TransferDialogs::inform(const QString &title, const QString &text)
{
    QMessageBox::information(m_parent, title, text);
}

void TransferDialogs::showFailure(const QString &title, const QString &text)
{
    QMessageBox::critical(m_parent, title, text);
}

void TransferDialogs::tellCounts(const QString &title, const QString &text,
                                 const QStringList &failed, const QStringList &skipped)
{
    QMessageBox box(failed.isEmpty() ? QMessageBox::Information : QMessageBox::Warning, title, text,
                    QMessageBox::Ok, m_parent);
    // A file's name could look like markup.
    box.setTextFormat(Qt::PlainText);
    setDetails(box, failed + skipped + m_present);
    m_present.clear();
    const QAbstractButton *show = nullptr;
    const QAbstractButton *eject = nullptr;
    if (m_offersNext) {
        show = box.addButton(tr("Mostra la memoria"), QMessageBox::ActionRole);
        eject = box.addButton(tr("Espelli la memoria"), QMessageBox::ActionRole);
        box.setDefaultButton(QMessageBox::Ok);
        box.setEscapeButton(QMessageBox::Ok);
    }
    box.exec();
    if (show != nullptr && box.clickedButton() == show)
        m_next = Next::ShowMemory;
    else if (eject != nullptr && box.clickedButton() == eject)
        m_next = Next::Eject;
}
