// The row of buttons by which the user hears a song.
#pragma once

#include "sound/player.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QAbstractItemView;
class QLabel;
class QMenu;
class QSlider;
class QStackedLayout;
class QToolButton;
QT_END_NAMESPACE

class ElidedLabel;

/**
 * Play, stop, position, sections, volume and the choice of the sound font. All bars stand on one
 * player: whatever plays can be stopped in each. The button plays the bar's own song; where that
 * cannot be played, it is off, and the bar says why.
 */
class PlayerBar : public QWidget
{
    Q_OBJECT

public:
    /** Stands on the program's player. */
    explicit PlayerBar(QWidget *parent = nullptr);

    /** The player must outlive the bar. */
    PlayerBar(Player &player, QWidget *parent);

    /** The song that the button plays; empty for none. What plays goes on. */
    void setSong(const QString &path);

    /** As a press of the button: plays the song, or pauses it, or goes on. */
    void toggle();

    /**
     * The space key in the table plays the bar's song. Where the user is typing the beginning of a
     * name it belongs to that, and with a modifier it selects as before.
     */
    void playOnSpaceIn(QAbstractItemView *table);

    /** The tabulator key goes from this widget of the same window through the bar. */
    void followInTabOrder(QWidget *before);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void makeWidgets();
    QToolButton *makeButton();
    void connectWidgets();
    void retranslate();
    void refresh();
    void showPosition();
    void showSections();
    void seekTo(double seconds);
    void storeVolume(int percent);
    void chooseSoundFont();
    void setSoundFont(const QString &path);
    QString whyOff() const;

    Player &m_player;
    QString m_song;
    QToolButton *m_play = nullptr;
    QToolButton *m_stop = nullptr;
    QStackedLayout *m_middle = nullptr; ///< the slider, or why there is nothing to hear
    QLabel *m_elapsed = nullptr;
    QSlider *m_position = nullptr;
    QLabel *m_remaining = nullptr;
    ElidedLabel *m_problem = nullptr;
    QToolButton *m_sections = nullptr;
    QSlider *m_volume = nullptr;
    QToolButton *m_options = nullptr;
    QAction *m_chooseFont = nullptr;
    QAction *m_installedFont = nullptr;
    QPointer<QAbstractItemView> m_table;
    QElapsedTimer m_sinceTyping;
};
