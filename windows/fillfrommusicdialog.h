// The window in which songs get the values that their music has.
#pragma once

#include "library/historyrecorder.h"
#include "library/musicoffer.h"

#include <QDialog>
#include <QList>
#include <QScopedPointer>
#include <QStringList>

class MusicOffersModel;

QT_BEGIN_NAMESPACE
namespace Ui
{
class FillFromMusicDialog;
}
QT_END_NAMESPACE

/**
 * Shows of each song what it says of itself and what its music says. Nothing is written before the
 * user applies it, and then only what is ticked.
 */
class FillFromMusicDialog : public QDialog
{
    Q_OBJECT

public:
    /** The songs that lack something; the others are measured when the user wants to see them. */
    struct Songs {
        QList<MusicOffer> measured;
        QStringList stopped; ///< not measured, since the user stopped it
        QStringList others;
    };

    FillFromMusicDialog(const Songs &songs, OpenHistory openHistory, QWidget *parent = nullptr);
    ~FillFromMusicDialog() override;

    /**
     * Measures the songs, as they stand in the list, under a progress that can be stopped. Those of
     * which the list already says all that the music could are left to be measured later.
     */
    static Songs measure(const QList<SongInfo> &songs, QWidget *parent);

    const MusicOffersModel &model() const { return *m_model; }

signals:
    /** What a song holds now; with None it was written. */
    void tried(const SongInfo &now, SaveFailure failure);

protected:
    void changeEvent(QEvent *event) override;

private:
    void setUpTable();
    void showColumns();
    void showOthers(bool isAll);
    void showSummary();
    void apply();

    const QScopedPointer<Ui::FillFromMusicDialog> ui;
    const OpenHistory m_openHistory;
    MusicOffersModel *const m_model;
    QStringList m_stopped;
    QStringList m_others;
};
