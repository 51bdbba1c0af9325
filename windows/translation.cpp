#include "windows/translation.h"

#include <QCoreApplication>
#include <QTranslator>

namespace
{

// A translator that is installed already is taken out first: it must not stand in the list twice.
// One that cannot be loaded is installed all the same and leaves the Italian texts.
void loadAndInstall(QTranslator &translator, const QString &resource)
{
    QCoreApplication::removeTranslator(&translator);
    (void)translator.load(resource);
    QCoreApplication::installTranslator(&translator);
}

} // namespace

void translation::installGerman(QTranslator &program, QTranslator &qt)
{
    loadAndInstall(program, QStringLiteral(":/trans/quorvane_de"));
    loadAndInstall(qt, QStringLiteral(":/trans/qt_de"));
}

void translation::installEnglish(QTranslator &program)
{
    loadAndInstall(program, QStringLiteral(":/trans/quorvane_en"));
}
