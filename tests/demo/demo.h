// Drives the real windows through the whole job, on whatever display it is started on: gathers
// songs, imports, synchronises, edits, transfers, rebuilds and exports, in the language of a
// first start and in English.
// Leaves the songs, the player's memory, the screenshots and the pictures of the help in the folder
// that it is given.
#pragma once

#include "app/mainwindow.h"
#include "demo/helppictures.h"
#include "support/userdriver.h"

#include <QSet>
#include <QString>
#include <QStringList>

/** Says on the terminal what the demonstration does. */
void say(const QString &text);

class Demo
{
public:
    explicit Demo(const QString &folder);

    void showStart(const QString &language);
    void runJob(const QString &language);
    void lookAtMemory();
    void showInfoWindows();
    void trigger(const char *action);
    void shoot(const QString &name);

private:
    void addAnswers();
    bool answerBackup(QWidget *window);
    bool answerQuestion(QWidget *window);
    bool answerEdit(QWidget *window);
    bool answerPlan(QWidget *window);
    bool answerMemory(QWidget *window);
    bool answerSongsList(QWidget *window);
    bool answerCatalogue(QWidget *window);
    bool answerHistory(QWidget *window);
    bool answerEditSeveral(QWidget *window);
    bool answerBox(QWidget *window);
    bool answerOther(QWidget *window);
    void gatherSongs();
    void importSongs();
    void synchronise();
    void editSongs();
    void transferSongs();
    void editArtistOfAll();
    void shootOnce(QWidget *window, const QString &name);
    void document(QWidget *window, const QString &name);
    void picture(QWidget *part, const char *name);
    void pictureOfStates();
    void picturesOfMenus();
    void clickTool(const char *name);
    void reportRows();

    QString m_folder;
    QString m_card;
    QString m_language;
    QStringList m_questions; ///< the names for the pictures of the next questions about files
    QString m_message;       ///< and for that of the next message
    bool m_isForAll = false; ///< the edit gives its artist to all songs
    QStringList m_songs;
    QSet<QString> m_shot;
    HelpPictures m_helpPictures;
    MainWindow m_window;
    UserDriver m_user;
};
