#include "windows/readablelinks.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace
{

constexpr double leastContrast = 4.5;

/** The relative luminance of the colour, from 0 to 1. */
double luminance(const QColor &colour)
{
    const auto light = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * light(colour.redF()) + 0.7152 * light(colour.greenF()) +
           0.0722 * light(colour.blueF());
}

double leastContrastOf(const QColor &colour, const QPalette &palette)
{
    return std::min(contrast(colour, palette.color(QPalette::Window)),
                    contrast(colour, palette.color(QPalette::Base)));
}

/** A colour of the same hue that is just light or dark enough. */
QColor madeReadable(const QColor &colour, const QPalette &palette)
{
    const bool isDark = luminance(palette.color(QPalette::Window)) < 0.18;
    const double saturation = colour.hslSaturationF();
    const double hue = std::max(0.0F, colour.hslHueF()); // negative for greys
    QColor changed = colour;
    double lightness = colour.lightnessF();
    while (leastContrastOf(changed, palette) < leastContrast && lightness > 0 && lightness < 1) {
        lightness = std::clamp(lightness + (isDark ? 0.02 : -0.02), 0.0, 1.0);
        changed = QColor::fromHslF(static_cast<float>(hue), static_cast<float>(saturation),
                                   static_cast<float>(lightness));
    }
    return changed;
}

} // namespace

double contrast(const QColor &first, const QColor &second)
{
    const double one = luminance(first);
    const double other = luminance(second);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

ReadableLinks::ReadableLinks(QObject *parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
    adjustPalette();
}

bool ReadableLinks::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange)
        adjustPalette();
    return false;
}

void ReadableLinks::adjustPalette()
{
    QPalette palette = QApplication::palette();
    bool isReadable = true;
    for (const QPalette::ColorRole role : {QPalette::Link, QPalette::LinkVisited}) {
        if (leastContrastOf(palette.color(role), palette) >= leastContrast)
            continue;
        isReadable = false;
        palette.setColor(role, madeReadable(palette.color(role), palette));
    }
    if (!isReadable)
        QApplication::setPalette(palette);
}
