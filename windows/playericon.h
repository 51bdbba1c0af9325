// The pictures on the buttons of a player, in the colour of the window's texts.
#pragma once

#include <QIcon>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace playericon
{
enum class Kind { Play, Pause, Stop };

/** The style's own pictures cannot be seen on a dark window. */
QIcon make(Kind kind, const QWidget &widget);
} // namespace playericon
