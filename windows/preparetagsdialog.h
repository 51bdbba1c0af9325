// The window in which MP3 tags are prepared for the player.
#pragma once

#include "library/historyrecorder.h"
#include "library/tagjob.h"

#include <QDialog>
#include <QList>
#include <QScopedPointer>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QTreeWidgetItem;
namespace Ui
{
class PrepareTagsDialog;
}
QT_END_NAMESPACE

/**
 * Shows of each song what the player shows now, what the tag says and what the player would show,
 * which can be edited. Nothing is written before the user applies it, and then only the ticked
 * songs; those that were written leave the list.
 */
class PrepareTagsDialog : public QDialog
{
    Q_OBJECT

public:
    /** Without a history (null) the songs are not kept before they are written. */
    PrepareTagsDialog(const QList<Mp3Preparation> &preparations, OpenHistory openHistory,
                      QWidget *parent = nullptr);
    ~PrepareTagsDialog() override;

signals:
    /** These files have other tags now. */
    void written(const QStringList &paths);

private:
    void showSongs();
    void showFields(QTreeWidgetItem *item);
    void takeEdit(QTreeWidgetItem *item, int column);
    void editField(QTreeWidgetItem *item);
    void tickAll(bool ticked);
    void showCount();
    void apply();
    void examineAnew(const QString &path);
    void tell(const tagjob::Report &report);
    QList<tagjob::Song> chosenSongs() const;

    const QScopedPointer<Ui::PrepareTagsDialog> ui;
    const OpenHistory m_openHistory;
    QList<tagjob::Song> m_songs; ///< in the order of the rows
};
