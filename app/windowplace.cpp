#include "app/windowplace.h"

#include "library/settings.h"

#include <QSettings>
#include <QWidget>

void windowplace::restore(QWidget &window, const QSettings &settings)
{
    window.restoreGeometry(settings.value(settings::windowGeometry).toByteArray());
}

void windowplace::save(const QWidget &window, QSettings &settings)
{
    settings.setValue(settings::windowGeometry, window.saveGeometry());
}
