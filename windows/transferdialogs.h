// The windows of a transfer.
#pragma once

#include "devindex/transfer.h"

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/** Asks and tells the user in dialogs over the parent. */
class TransferDialogs : public TransferUser
{
    Q_DECLARE_TR_FUNCTIONS(MainWindow)

public:
    explicit TransferDialogs(QWidget *parent)
        : m_parent(parent)
    {
    }

    QString chooseFolder(const QString &title, const QString &startFolder) override;
    Answer askReplace(const QString &target) override;
    Answer askRename(const QString &path, const QString &message) override;
    bool askAnyway(const QString &title, const QString &question) override;
    bool reviewsPlans() const override { return true; }
    Review reviewPlan(TransferPlan &plan) override;
    void warn(const QString &title, const QString &text) override;
    void inform(const QString &title, const QString &text) override;
    void showFailure(const QString &title, const QString &text) override;
    void tellCounts(const QString &title, const QString &text, const QStringList &failed,
                    const QStringList &skipped) override;

private:
    QWidget *const m_parent;
};
