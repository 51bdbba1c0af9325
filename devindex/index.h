// The player's index on a memory: building, updating and reading it.
#pragma once

#include <QObject>
#include <QString>

class Index : public QObject
{
    Q_OBJECT

public:
    enum SORT_MODE { SortByTitle = 0, SortByArtist = 1, SortByGenre = 2 };

    Index();
    bool createIndex(const QString &root);
    bool updateIndex(const QString &root);
    int saveSongsList(const QString &root, const QString &fileName, SORT_MODE mode);

signals:
    void errorFromIndex(const QString &message);
    void currentPathChanged(const QString &path);
    void progressValueChanged(int value);
    void progressMaxSetup(int maximum);
    void fileFoundChanged(int count);
};
