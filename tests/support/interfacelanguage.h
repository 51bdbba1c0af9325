// Undoes a choice of the interface language, which holds for the whole test program.
#pragma once

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

/** The Italian texts of the sources, and the system's numbers and dates. */
inline void backToItalian()
{
    qDeleteAll(qApp->findChildren<QTranslator *>());
    QLocale::setDefault(QLocale::system());
    QCoreApplication::processEvents();
}
