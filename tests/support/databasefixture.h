// A database in a folder of its own, for its tests.
#pragma once

#include "support/debugcatalogue.h"
#include "support/scratchfolder.h"
#include "support/shorttext.h"

#include <QRegularExpression>
#include <QTest>

#include <memory>

namespace databasefixture
{

inline const QString blueDanube =
    QStringLiteral("'SUL BEL DANUBIO BLU', 'STRAUSS JOHANN', 'VALZER', 'STRAUSS JOHANN', 600, 180, "
                   "'D', 'DANUBIO', '1;Intro;45;Waltz1;', 'JOHANN STRAUSS'");

class DatabaseFixture : public QObject
{
protected:
    void init();
    void cleanup();

    std::unique_ptr<ScratchFolder> m_folder;
};

inline void DatabaseFixture::init()
{
    QTest::failOnWarning(QRegularExpression(s("QSql")));
    m_folder = std::make_unique<ScratchFolder>();
}

inline void DatabaseFixture::cleanup()
{
    m_folder.reset();
}

} // namespace databasefixture
