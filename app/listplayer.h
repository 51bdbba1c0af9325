// Lets the songs of the main window's list be heard.
#pragma once

#include <QObject>

class PlayerBar;
class SongList;

/** A bar below the list, which plays the song that the user stands on. */
class ListPlayer : public QObject
{
    Q_OBJECT

public:
    /** The list owns the object. */
    explicit ListPlayer(SongList &songs);

private:
    void follow();

    const SongList &m_songs;
    PlayerBar *const m_bar;
};
