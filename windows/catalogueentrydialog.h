// One entry of the user's own catalogue, to be changed by hand.
#pragma once

#include "library/songsdbrecord.h"

#include <QDialog>
#include <QScopedPointer>

#include <optional>

QT_BEGIN_NAMESPACE
namespace Ui
{
class CatalogueEntryDialog;
}
QT_END_NAMESPACE

/** What cannot be an entry cannot be accepted; the dialog tells why. */
class CatalogueEntryDialog : public QDialog
{
    Q_OBJECT

public:
    explicit CatalogueEntryDialog(const SongsDbRecord &entry, QWidget *parent = nullptr);
    ~CatalogueEntryDialog() override;

    /** The entry as it was filled in; only of an accepted dialog is it valid. */
    SongsDbRecord entry() const;

private:
    void judge();
    std::optional<qint32> length() const;
    std::optional<qint32> tempo() const;
    std::optional<QList<Marker>> markers() const;

    const QScopedPointer<Ui::CatalogueEntryDialog> ui;
};
