// Shows what a synchronisation would change, and asks whether to do it.
#pragma once

#include "library/changepreview.h"

#include <QDialog>
#include <QScopedPointer>

QT_BEGIN_NAMESPACE
class QTreeWidgetItem;
namespace Ui
{
class ChangePreviewDialog;
}
QT_END_NAMESPACE

/**
 * Shows a row for each song and below it a row with the old and the new value of each item that
 * would change.
 */
class ChangePreviewDialog : public QDialog
{
    Q_OBJECT

public:
    /** copyrightAsk: whether the songs without a signature are marked as still to be asked about.
     */
    ChangePreviewDialog(ChangePreview preview, bool copyrightAsk, QWidget *parent = nullptr);
    ~ChangePreviewDialog() override;

    /**
     * Finds the changes and shows them. True when the user wants to synchronise; true too for an
     * empty library, which has nothing to show. False when the user stopped or declined.
     */
    static bool confirm(const Database &database, SongTable &model, bool copyrightAsk,
                        const OpenProgress &openProgress, QWidget *parent);

protected:
    void changeEvent(QEvent *event) override;

private:
    void showPreview();
    QTreeWidgetItem *makeItem(const ChangePreview::Song &song) const;

    const QScopedPointer<Ui::ChangePreviewDialog> ui;
    const ChangePreview m_preview;
    const bool m_copyrightAsk;
};
