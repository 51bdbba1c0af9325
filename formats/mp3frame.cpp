#include "formats/mp3frame.h"

namespace
{

constexpr int bitRateCount = 15; // the first is "free format"

// Thousands of bits in a second.
constexpr int bitRatesOfVersion1[][bitRateCount] = {
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},
};
constexpr int bitRatesOfLayer1[] = {0,   32,  48,  56,  64,  80,  96, 112,
                                    128, 144, 160, 176, 192, 224, 256};
constexpr int bitRatesOfOthers[] = {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};

constexpr int sampleRates[] = {44100, 48000, 32000}; // halved with each version

int bitRateOf(const Mp3Frame &frame, int index)
{
    if (frame.version == 1)
        return bitRatesOfVersion1[frame.layer - 1][index];
    return frame.layer == 1 ? bitRatesOfLayer1[index] : bitRatesOfOthers[index];
}

int samplesOf(const Mp3Frame &frame)
{
    if (frame.layer == 1)
        return 384;
    return frame.layer == 3 && frame.version > 1 ? 576 : 1152;
}

} // namespace

std::optional<Mp3Frame> Mp3Frame::at(QByteArrayView bytes)
{
    if (bytes.size() < headerSize)
        return std::nullopt;
    const auto byte = [bytes](qsizetype place) { return static_cast<quint8>(bytes.at(place)); };
    const int versionBits = (byte(1) >> 3) & 3;
    const int layerBits = (byte(1) >> 1) & 3;
    const int rateIndex = byte(2) >> 4;
    const int sampleRateIndex = (byte(2) >> 2) & 3;
    constexpr int unknown = 3;
    if (byte(0) != 0xFF || (byte(1) & 0xE0) != 0xE0 || versionBits == 1 || layerBits == 0 ||
        rateIndex == 0 || rateIndex == bitRateCount || sampleRateIndex == unknown)
        return std::nullopt;

    Mp3Frame frame;
    frame.version = versionBits == 3 ? 1 : 3 - versionBits / 2;
    frame.layer = 4 - layerBits;
    constexpr int monoBits = 3;
    frame.isMono = byte(3) >> 6 == monoBits;
    frame.sampleRate = sampleRates[sampleRateIndex] >> (frame.version - 1);
    frame.samples = samplesOf(frame);
    // Frames are filled up with whole slots: bytes, or groups of four of them in Layer I.
    const int slotSize = frame.layer == 1 ? 4 : 1;
    constexpr int bitsInByte = 8;
    const int bitsInSecond = 1000 * bitRateOf(frame, rateIndex);
    const int slotCount = frame.samples / bitsInByte / slotSize * bitsInSecond / frame.sampleRate;
    const int padding = (byte(2) >> 1) & 1;
    frame.size = qsizetype{slotCount + padding} * slotSize;
    return frame;
}

qsizetype Mp3Frame::mainDataPos() const
{
    if (version == 1)
        return headerSize + (isMono ? 17 : 32);
    return headerSize + (isMono ? 9 : 17);
}
