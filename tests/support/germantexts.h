// The German interface, for as long as it lives.
#pragma once

#include <QCoreApplication>
#include <QTest>
#include <QTranslator>

class GermanTexts
{
public:
    GermanTexts()
    {
        QVERIFY(m_translator.load(QStringLiteral(":/trans/quorvane_de")));
        QCoreApplication::installTranslator(&m_translator);
        QCoreApplication::processEvents();
    }
    ~GermanTexts()
    {
        QCoreApplication::removeTranslator(&m_translator);
        QCoreApplication::processEvents();
    }
    Q_DISABLE_COPY_MOVE(GermanTexts)

private:
    QTranslator m_translator;
};
