#include "windows/windowplace.h"

#include "library/settings.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>

#include <algorithm>

void windowplace::restore(QWidget &window, const QSettings &settings)
{
    const QRect stored = settings.value(settings::windowPlace).toRect();
    if (stored.isEmpty())
        return;
    const QScreen *const itsScreen = QGuiApplication::screenAt(stored.center());
    const QScreen *const screen =
        itsScreen != nullptr ? itsScreen : QGuiApplication::primaryScreen();
    const QRect room = screen->availableGeometry();
    window.resize(stored.size().boundedTo(room.size()));
    if (itsScreen != nullptr)
        window.move(
            std::max(room.left(), std::min(stored.left(), room.right() + 1 - window.width())),
            std::max(room.top(), std::min(stored.top(), room.bottom() + 1 - window.height())));
    if (settings.value(settings::windowMaximised).toBool())
        window.setWindowState(Qt::WindowMaximized);
}

void windowplace::save(const QWidget &window, QSettings &settings)
{
    const QRect place =
        window.isMaximized() ? window.normalGeometry() : QRect(window.pos(), window.size());
    settings.setValue(settings::windowPlace, place);
    settings.setValue(settings::windowMaximised, window.isMaximized());
}
