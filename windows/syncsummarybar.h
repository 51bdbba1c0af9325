// The bar that tells what a synchronisation came to, and what can be done next.
#pragma once

#include <QFrame>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
class QToolButton;
QT_END_NAMESPACE

/** Hidden until there is something to tell, and again when the user closes it. */
class SyncSummaryBar : public QFrame
{
    Q_OBJECT

public:
    /** All the songs that were looked at: found, unknown to the catalogue, and left for another
     * reason. */
    struct Result {
        int songs = 0; ///< that were to be looked at
        int found = 0;
        int unknown = 0;
        int left = 0;
        int added = 0; ///< unknown ones that are in the user's own catalogue now
    };

    explicit SyncSummaryBar(QWidget *parent = nullptr);

    /** Shows the result; the actions are offered when there are unknown songs. */
    void tell(const Result &result);

    QPushButton *editButton() const { return m_edit; }
    QPushButton *addButton() const { return m_add; }
    QToolButton *closeButton() const { return m_close; }

signals:
    /** The unknown songs are to be edited. */
    void editWanted();

    /** The unknown songs are to be entries of the user's own catalogue. */
    void addWanted();

protected:
    void changeEvent(QEvent *event) override;

private:
    void setTexts();

    QLabel *const m_text;
    QPushButton *const m_edit;
    QPushButton *const m_add;
    QToolButton *const m_close;
    Result m_result;
};
