// LZHUF codec of the MIDI payload in MFX song files.
#pragma once

#include <QByteArray>

class LzHuff
{
public:
    void compress(const QByteArray &in, QByteArray &out);
    bool expand(const QByteArray &in, QByteArray &out);
};
