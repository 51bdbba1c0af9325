#include "sound/module/fluidsynthesizer.h"

#include "sound/pcm.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>

namespace
{

constexpr double gain = 0.5; // FluidSynth's own 0.2 is far below the loudness of usual MP3 files

/**
 * True when the file is as long as its head says. FluidSynth finds other damage; but where it is
 * given what is no font at all, a library of its own writes into the terminal.
 */
bool isWholeFont(const QString &path)
{
    constexpr qint64 headSize = 8; // "RIFF" and the size of what follows, little-endian
    constexpr qint64 kindSize = 4;
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return false;
    const QByteArray head = file.read(headSize + kindSize);
    return head.size() == headSize + kindSize && head.startsWith("RIFF") &&
           (head.endsWith("sfbk") || head.endsWith("DLS ")) &&
           qFromLittleEndian<quint32>(head.constData() + kindSize) <= file.size() - headSize;
}

} // namespace

FluidSynthesizer::FluidSynthesizer()
    : m_settings(new_fluid_settings())
{
    // What it says belongs into no terminal; what matters is told by what it returns.
    for (const int level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG})
        fluid_set_log_function(level, nullptr, nullptr);
    fluid_settings_t *const settings = m_settings.get();
    fluid_settings_setnum(settings, "synth.sample-rate", pcm::sampleRate);
    fluid_settings_setnum(settings, "synth.gain", gain);
    // Only one thread at a time uses it.
    fluid_settings_setint(settings, "synth.threadsafe-api", 0);
    fluid_settings_setint(settings, "synth.lock-memory", 0);
    m_synth.reset(new_fluid_synth(settings));
}

bool FluidSynthesizer::load(const QString &soundFont)
{
    return m_synth && isWholeFont(soundFont) &&
           fluid_synth_sfload(m_synth.get(), QFile::encodeName(soundFont).constData(), 1) !=
               FLUID_FAILED;
}

void FluidSynthesizer::send(quint8 status, quint8 first, quint8 second)
{
    fluid_synth_t *const synth = m_synth.get();
    const int channel = status & 0x0F;
    switch (status & 0xF0) {
    case 0x80:
        fluid_synth_noteoff(synth, channel, first);
        break;
    case 0x90:
        if (second > 0)
            fluid_synth_noteon(synth, channel, first, second);
        else
            fluid_synth_noteoff(synth, channel, first);
        break;
    case 0xA0:
        fluid_synth_key_pressure(synth, channel, first, second);
        break;
    case 0xB0:
        fluid_synth_cc(synth, channel, first, second);
        break;
    case 0xC0:
        fluid_synth_program_change(synth, channel, first);
        break;
    case 0xD0:
        fluid_synth_channel_pressure(synth, channel, first);
        break;
    case 0xE0:
        fluid_synth_pitch_bend(synth, channel, first | second << 7);
        break;
    default:
        break;
    }
}

void FluidSynthesizer::sendSystemExclusive(QByteArrayView data)
{
    // In a file the end mark belongs to the data, for FluidSynth it does not.
    if (data.endsWith('\xF7'))
        data.chop(1);
    if (!data.isEmpty())
        fluid_synth_sysex(m_synth.get(), data.data(), static_cast<int>(data.size()), nullptr,
                          nullptr, nullptr, 0);
}

void FluidSynthesizer::reset()
{
    fluid_synth_system_reset(m_synth.get());
}

void FluidSynthesizer::render(qint16 *samples, qsizetype frames)
{
    constexpr int right = 1;
    if (fluid_synth_write_s16(m_synth.get(), static_cast<int>(frames), samples, 0, pcm::channels,
                              samples, right, pcm::channels) != FLUID_OK)
        std::fill_n(samples, frames * pcm::channels, qint16{0});
}

bool FluidSynthesizer::isSounding() const
{
    return fluid_synth_get_active_voice_count(m_synth.get()) > 0;
}
