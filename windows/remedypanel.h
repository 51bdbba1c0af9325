// The fields below a transfer plan with which the user decides about the selected songs.
#pragma once

#include "devindex/transferplan.h"

#include <QList>
#include <QScopedPointer>
#include <QWidget>

QT_BEGIN_NAMESPACE
namespace Ui
{
class RemedyPanel;
}
QT_END_NAMESPACE

/**
 * Offers what can be done about at least one of the songs; what is chosen goes to all that can have
 * it. A single song that is kept beside another one can get a name of the user's own.
 */
class RemedyPanel : public QWidget
{
    Q_OBJECT

public:
    explicit RemedyPanel(QWidget *parent = nullptr);
    ~RemedyPanel() override;

    /** The plan must outlive the panel. */
    void setPlan(TransferPlan &plan);

    /** Shows the songs of these numbers; a name that could not be taken is forgotten. */
    void showSongs(const QList<int> &songs);

    /** Why the name that stands in the field cannot be had; empty when it can. */
    QString nameProblem() const { return m_nameProblem; }

signals:
    /** The plan has changed, or whether there is a problem with the name. */
    void changed();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void choose(int row);
    void takeName(const QString &name);
    void showRemedies();
    void showName();

    const QScopedPointer<Ui::RemedyPanel> ui;
    TransferPlan *m_plan = nullptr;
    QList<int> m_songs;
    QString m_nameProblem;
};
