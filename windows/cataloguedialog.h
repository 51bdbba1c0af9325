// The window of the user's own catalogue.
#pragma once

#include "library/owncatalogue.h"

#include <QDialog>
#include <QList>
#include <QScopedPointer>
#include <QStringList>

QT_BEGIN_NAMESPACE
namespace Ui
{
class CatalogueDialog;
}
QT_END_NAMESPACE

/** Searches, adds, edits and deletes entries; reads and writes tables of them. */
class CatalogueDialog : public QDialog
{
    Q_OBJECT

public:
    /** The songs are those that can be added at once: what the list of the main window shows. */
    explicit CatalogueDialog(const QStringList &songs, QWidget *parent = nullptr);
    ~CatalogueDialog() override;

signals:
    /** The songs at these paths are entries now. */
    void added(const QStringList &paths);

private:
    void readEntries();
    void showEntries();
    void enableButtons();
    void addSongs();
    void edit();
    void remove();
    void importTable();
    void exportTable();
    QStringList chosenNames() const;

    const QScopedPointer<Ui::CatalogueDialog> ui;
    const QStringList m_songs;
    OwnCatalogue m_catalogue;
    QList<SongsDbRecord> m_entries; ///< all, by title
};
