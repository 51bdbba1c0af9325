// The window of a transfer plan over a memory and songs, for its tests.
#pragma once

#include "support/ownfolders.h"
#include "support/planfixture.h"
#include "support/planwindow.h"
#include "support/shorttext.h"

#include <memory>

namespace planfixture
{

using Purpose = TransferPlanDialog::Purpose;
using Review = TransferUser::Review;

class PlanDialogFixture : public PlanFixture
{
protected:
    void init()
    {
        OwnSettings::clear();
        PlanFixture::init();
        m_room = fatRoom();
    }
    void cleanup()
    {
        m_window.reset();
        m_dialog.reset();
        PlanFixture::cleanup();
    }

    void open(const TransferPlan &made, Purpose purpose = Purpose::Warning)
    {
        m_dialog = std::make_unique<TransferPlanDialog>(made, purpose);
        m_window = std::make_unique<PlanWindow>(m_dialog.get());
        m_dialog->show();
        m_dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    }

    /** Two songs of the memory are not in the list. */
    TransferPlan inLine()
    {
        onCard(s("pop/old1.mid"), "OLD 1");
        onCard(s("pop/old2.mid"), "OLD 2");
        return plan({song(s("new.mid"), "NEW")}, true);
    }

    Remedy remedyOf(int item) const { return m_dialog->plan().items.at(item).remedy; }

    std::unique_ptr<TransferPlanDialog> m_dialog;
    std::unique_ptr<PlanWindow> m_window;
};

} // namespace planfixture
