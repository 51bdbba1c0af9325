// The numbers of songs in each state, as buttons that narrow the list to these songs.
#pragma once

#include "library/database.h"

#include <QSet>
#include <QStringList>
#include <QWidget>

#include <array>

QT_BEGIN_NAMESPACE
class QToolButton;
QT_END_NAMESPACE

/**
 * One button a state, with its sign. Several can be pressed at once. Where there is no room for the
 * words, the numbers stand beside the signs alone; tool tip and accessible name keep the words.
 */
class StateButtons : public QWidget
{
    Q_OBJECT

public:
    /** By Database::statusEnum. */
    static constexpr int count = Database::StatusNotSynced + 1;
    using Numbers = std::array<int, count>;

    explicit StateButtons(QWidget *parent = nullptr);

    /** Shows the numbers in texts with a place-holder each, "nuove: %1", by Database::statusEnum.
     */
    void setNumbers(const Numbers &numbers, const QStringList &texts);

    /** The states whose buttons are pressed. */
    QSet<int> chosen() const;

    /** Releases all buttons. */
    void clear();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /** Other buttons are pressed than before. */
    void chosenChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void showTexts();
    int widthOf(const QStringList &texts) const;

    std::array<QToolButton *, count> m_buttons{};
    QStringList m_full;
    QStringList m_short;
};
