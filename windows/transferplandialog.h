// Shows what a transfer is going to do, and lets the user decide about each song.
#pragma once

#include "devindex/transfer.h"
#include "devindex/transferplan.h"

#include <QDialog>
#include <QScopedPointer>
#include <QTimer>

QT_BEGIN_NAMESPACE
namespace Ui
{
class TransferPlanDialog;
}
QT_END_NAMESPACE

class TransferPlanModel;

/**
 * A tree of the songs, in groups, with what becomes of each; below it fields for the selected
 * songs, and the sums. A plan that cannot go, since there is too little room or the memory was
 * pulled, cannot be carried out, and the dialog says why.
 */
class TransferPlanDialog : public QDialog
{
    Q_OBJECT

public:
    enum class Purpose {
        Warning, ///< songs would be lost or doubled; copying without the plan is offered, too
        Request  ///< the user wants to see it; songs can be removed where the plan lists others
    };

    TransferPlanDialog(TransferPlan plan, Purpose purpose, QWidget *parent = nullptr);
    ~TransferPlanDialog() override;

    /** What the user decided; Cancel for a dialog that was closed. */
    TransferUser::Review review() const { return m_review; }

    /** The plan as the user left it. */
    const TransferPlan &plan() const { return m_plan; }

private:
    void setUpTree();
    void expandGroups();
    void showOthers(bool show);
    void showIntro(Purpose purpose);
    void showSelection();
    void refresh();
    QString skippedText() const;
    QString whyNot() const;
    void carryOut();
    bool confirmRemoval();
    void finish(TransferUser::Review review);

    const QScopedPointer<Ui::TransferPlanDialog> ui;
    TransferPlan m_plan;
    TransferPlanModel *const m_model;
    TransferUser::Review m_review = TransferUser::Review::Cancel;
    bool m_isGone = false; ///< the memory
    QTimer m_watch;        ///< for a memory that is pulled out
};
