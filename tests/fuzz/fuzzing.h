// What every fuzzer needs: its input cut into values, checks that stop the run, files in memory.
#pragma once

#include "formats/songinfo.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstddef>
#include <cstdint>

// The entry points that libFuzzer calls.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

/** Ends the run and says which rule the input broke. */
#define FUZZ_REQUIRE(condition)                                                                    \
    do {                                                                                           \
        if (!(condition))                                                                          \
            fuzzing::fail(#condition, __FILE__, __LINE__);                                         \
    } while (false)

namespace fuzzing
{

[[noreturn]] void fail(const char *condition, const char *file, int line);

/**
 * Takes values from the front of an input; behind its end there are zeros and nothing. What is put
 * together by hand as a seed reads in the same order: small values first, whole files last.
 */
class Input
{
public:
    Input(const std::uint8_t *data, std::size_t size);

    quint8 byte();
    /** Four bytes, big-endian. */
    qint32 number();
    QByteArray bytes(qsizetype size);
    /** A length byte and as many bytes. */
    QByteArray shortBytes() { return bytes(byte()); }
    /** A length of three bytes, big-endian, and as many bytes. */
    QByteArray longBytes();
    /** A length byte and as many bytes of UTF-8; also what Latin-1 cannot hold. */
    QString text() { return QString::fromUtf8(shortBytes()); }
    QList<Marker> markers();
    /** A song's record with every item that can be written. */
    SongInfo songInfo();
    /** All that is left. */
    QByteArray rest() { return bytes(m_left.size()); }

private:
    QByteArrayView m_left;
};

/** The number in the bytes at a position, which must be there. */
quint32 bigEndianAt(const QByteArray &bytes, qsizetype pos);

/** A folder in memory that is this process's own, removed when it ends. */
QString memoryFolder();

void writeFile(const QString &path, const QByteArray &bytes);
QByteArray readFile(const QString &path);

} // namespace fuzzing
