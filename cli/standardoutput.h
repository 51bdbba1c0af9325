// Standard output: every byte arrives, or the program says that it did not.
#pragma once

#include <QByteArray>

class StandardOutput
{
public:
    /** Writes bytes; after a failure the running command stops between two files. */
    void write(const QByteArray &bytes);

    /** Brings everything out. False when anything could not be written since the start. */
    bool finish();

    /** False once bytes could not be written. */
    bool isGood() const { return m_isGood; }

private:
    bool m_isGood = true;
};
