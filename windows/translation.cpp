#include "windows/translation.h"

#include <QApplication>
#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>
#include <QWidget>

namespace
{

/** The program's one translator of this name. */
QTranslator &translator(const QString &name)
{
    // Not qApp, which takes every application for one with windows.
    QCoreApplication *application = QCoreApplication::instance();
    auto *found = application->findChild<QTranslator *>(name, Qt::FindDirectChildrenOnly);
    if (found == nullptr) {
        found = new QTranslator(application);
        found->setObjectName(name);
    }
    return *found;
}

/**
 * The system's locale if its language is the given one: numbers and dates then are written as in
 * the user's own country. Otherwise the usual locale of the language.
 */
QLocale localeOf(QLocale::Language language)
{
    const QLocale system(QLocale::system().name());
    return system.language() == language ? system : QLocale(language);
}

/** A window keeps the locale that was set when it was made, and so do its fields. */
void showIn(const QLocale &locale)
{
    QLocale::setDefault(locale);
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows)
        window->unsetLocale();
}

} // namespace

void translation::use(const QString &language)
{
    const QString shown = branding().shownLanguage(language);
    QTranslator &program = translator(QStringLiteral("programTranslator"));
    QTranslator &qt = translator(QStringLiteral("qtTranslator"));
    QCoreApplication::removeTranslator(&program);
    QCoreApplication::removeTranslator(&qt);

    showIn(localeOf(QLocale(shown).language()));
    (void)program.load(branding().translation(shown));
    QCoreApplication::installTranslator(&program);
    if (shown == languages::english)
        return; // Qt's texts are English by themselves
    (void)qt.load(QStringLiteral(":/trans/qt_") + shown);
    QCoreApplication::installTranslator(&qt);
}
