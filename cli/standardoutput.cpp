#include "cli/standardoutput.h"

#include "cli/interrupt.h"

#include <cstdio>

void StandardOutput::write(const QByteArray &bytes)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    if (m_isGood && std::fwrite(bytes.constData(), 1, size, stdout) != size) {
        m_isGood = false;
        interrupt::request();
    }
}

bool StandardOutput::finish()
{
    m_isGood = std::fflush(stdout) == 0 && m_isGood;
    return m_isGood;
}
