#include "app/actionbuttons.h"

#include "app/actiongate.h"
#include "app/buttonaction.h"
#include "app/buttonwords.h"

#include "ui_mainwindow.h"

ActionButtons::ActionButtons(const Ui::MainWindow &form, ActionGate &gate)
    : m_form(form)
    , m_gate(gate)
{
}

void ActionButtons::setUp()
{
    QObject *const actions[] = {m_form.selectDirToolButton,
                                m_form.updateDataToolButton,
                                m_form.transferFilesToolButton,
                                m_form.actionTransferPlan,
                                m_form.optimizeMemory,
                                m_form.actionSongsList,
                                m_form.actionContents,
                                m_form.actionShortcuts,
                                m_form.actionAbout,
                                m_form.actionAbout_QT,
                                m_form.dbgImportPushButton,
                                m_form.dbgBackupPushButton,
                                m_form.dbgShowDialogPushButton,
                                m_form.dbgAddMarkerPushButton,
                                m_form.dbgSavePushButton};
    for (QObject *const action : actions)
        m_gate.add(action);
    disable();

    new ButtonAction(m_form.actionSelectSongs, m_form.selectDirToolButton);
    new ButtonAction(m_form.actionSynchronise, m_form.updateDataToolButton);
    new ButtonAction(m_form.actionTransfer, m_form.transferFilesToolButton);
    new ButtonWords(m_form.centralWidget, {m_form.selectDirToolButton, m_form.updateDataToolButton,
                                           m_form.transferFilesToolButton});
    m_form.selectDirToolButton->setFocus(); // what a user begins with
}

void ActionButtons::disable()
{
    setSynchronise(false);
    setTransfer(false);
}

void ActionButtons::disableForGood()
{
    disable();
    for (QObject *const button :
         {m_form.dbgImportPushButton, m_form.dbgSavePushButton, m_form.dbgAddMarkerPushButton})
        m_gate.setWanted(button, false);
}

void ActionButtons::setSynchronise(bool enabled)
{
    m_gate.setWanted(m_form.updateDataToolButton, enabled);
}

void ActionButtons::setTransfer(bool enabled)
{
    m_gate.setWanted(m_form.transferFilesToolButton, enabled);
    m_gate.setWanted(m_form.actionTransferPlan, enabled);
}

bool ActionButtons::canSynchronise() const
{
    return m_gate.isWanted(m_form.updateDataToolButton);
}
