// A section marker of a song: where the section begins and what it is called.
#pragma once

#include <QString>

struct Marker {
    quint16 bar = 0; ///< bar (measure) at which the section begins, as the user counts bars
    QString text;    ///< label of the section

    friend bool operator==(const Marker &first, const Marker &second)
    {
        return first.bar == second.bar && first.text == second.text;
    }
    friend bool operator!=(const Marker &first, const Marker &second) { return !(first == second); }
};
