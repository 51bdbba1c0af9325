// The window in which several songs are edited at once.
#pragma once

#include "library/severaleditor.h"
#include "windows/editstepform.h"

#include <QDialog>
#include <QList>
#include <QScopedPointer>
#include <QTimer>

class SeveralSongsModel;

QT_BEGIN_NAMESPACE
namespace Ui
{
class EditSeveralDialog;
}
QT_END_NAMESPACE

/**
 * Steps above, the songs with their old and new values below. Each change of a step is shown at
 * once; nothing is written before the user presses the button for it.
 */
class EditSeveralDialog : public QDialog
{
    Q_OBJECT

public:
    /** The songs as they are now, each with its path and its format; it begins with one step. */
    EditSeveralDialog(const QList<SongInfo> &songs, OpenHistory openHistory,
                      QWidget *parent = nullptr);
    ~EditSeveralDialog() override;

    /** Adds a step of this kind behind the others. */
    void addStep(EditStepForm::Kind kind);

    const SeveralSongsModel &model() const { return *m_model; }

signals:
    /** What a song holds now; with None it was written. */
    void tried(const SongInfo &now, SaveFailure failure);

private:
    void setUpTable();
    void setUpButtons();
    void removeStep();
    void moveStep(int by);
    void showStep(int step);
    void enableStepButtons();
    EditStepForm *form(int step) const;
    void preview();
    void showColumns();
    void showExample();
    void showSummary();
    void toggleSelected();
    void apply();

    const QScopedPointer<Ui::EditSeveralDialog> ui;
    const OpenHistory m_openHistory;
    SeveralSongsModel *const m_model;
    QTimer m_later; ///< until all keys that wait are taken
};
