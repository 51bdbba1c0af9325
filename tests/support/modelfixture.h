// The model of the song table, for its tests.
#pragma once

#include "support/shorttext.h"
#include "windows/usersongsreltablemodel.h"

#include <QAbstractItemModelTester>
#include <QRegularExpression>
#include <QTest>

#include <ctime>
#include <memory>

namespace modelfixture
{

inline SongInfo song(const QString &title)
{
    SongInfo info;
    info.format = QStringLiteral("MIDI");
    info.title = title;
    info.fileName = QStringLiteral("/music/") + title;
    info.shortName = title;
    return info;
}

class ModelFixture : public QObject
{
protected:
    void init();
    void cleanup();

    QString stored(int row, const QString &field) const;
    QString titles() const;
    void addTitles(const QString &titles);

    std::unique_ptr<Database> m_database;
    std::unique_ptr<UserSongsRelTableModel> m_model;
    std::unique_ptr<QAbstractItemModelTester> m_tester; ///< slow with many rows: reset it there
};

inline void ModelFixture::init()
{
    QTest::failOnWarning(QRegularExpression(s("QSql")));
    m_database = std::make_unique<Database>();
    QVERIFY(m_database->init());
    m_model = std::make_unique<UserSongsRelTableModel>(nullptr, m_database->userLibraryDb());
    m_tester = std::make_unique<QAbstractItemModelTester>(
        m_model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
}

inline void ModelFixture::cleanup()
{
    m_tester.reset();
    m_model.reset();
    m_database.reset();
}

/** What the table itself, not the model, holds for a row of the model. */
inline QString ModelFixture::stored(int row, const QString &field) const
{
    QSqlQuery query(m_database->userLibraryDb());
    query.exec(QStringLiteral("select %1 from usersongs where id = %2")
                   .arg(field)
                   .arg(m_model->index(row, 0).data().toInt()));
    return query.next() ? query.value(0).toString() : QStringLiteral("no such row");
}

/** The titles from the first row to the last, with a blank between. */
inline QString ModelFixture::titles() const
{
    QStringList all;
    for (int row = 0; row < m_model->rowCount(); ++row)
        all.append(m_model->index(row, m_model->fieldIndex(s("title"))).data().toString());
    return all.join(QLatin1Char(' '));
}

/** Adds a song for each title of a list like that of titles(). */
inline void ModelFixture::addTitles(const QString &titles)
{
    for (const QString &title : titles.split(QLatin1Char(' ')))
        QVERIFY(m_model->addSong(song(title)));
}

} // namespace modelfixture
