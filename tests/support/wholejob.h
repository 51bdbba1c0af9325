// A user with a folder of songs, a memory and the program's window, who does whole jobs.
#pragma once

#include "app/mainwindow.h"
#include "support/apptest.h"
#include "support/samplesongs.h"
#include "support/userdriver.h"
#include "windows/nocopyrightdialog.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <memory>

/** The window lives for all tests of the class, which build on one another. */
class WholeJob : public QObject
{
protected:
    /** To be called by the test's initTestCase(). */
    void start()
    {
        QVERIFY(m_dir.isValid());
        qputenv("KAVENA_MOUNT_DIRS", QFile::encodeName(m_dir.filePath(QStringLiteral("mnt"))));
        m_card = m_dir.filePath(QStringLiteral("mnt/CARD"));
        QVERIFY(QDir().mkpath(m_card));
        QVERIFY(QDir().mkpath(m_dir.filePath(QStringLiteral("music"))));
        QVERIFY(QDir::setCurrent(m_dir.path()));
        makeSongs();
        m_window = std::make_unique<MainWindow>();
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }

    /** A small tune with this title. */
    static QByteArray abcTune(const QByteArray &title)
    {
        return "X:1\nT:" + title + "\nM:4/4\nL:1/4\nK:C\nCDEF|GABc|cBAG|FEDC|]\n";
    }

    QString path(const char *name) const { return m_dir.filePath(QString::fromLatin1(name)); }

    void clickWhenEnabled(const QString &button)
    {
        auto *const tool = m_window->findChild<QToolButton *>(button);
        QVERIFY(tool != nullptr);
        QVERIFY(tool->isEnabled());
        const QPoint centre = tool->mapTo(m_window.get(), tool->rect().center());
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, centre);
    }

    void import(const QStringList &files)
    {
        UserDriver user;
        user.pick(files);
        clickWhenEnabled(QStringLiteral("selectDirToolButton"));
        QVERIFY(user.allPicked());
    }

    /** Copies what was imported; names that are too long are shortened, files that exist kept. */
    void transfer(const QString &destination)
    {
        UserDriver user;
        user.pick({destination});
        int overwriteQuestions = 0;
        user.add([&overwriteQuestions](QWidget *window) {
            auto *const question = qobject_cast<NoCopyrightDialog *>(window);
            if (question == nullptr)
                return false;
            const bool overwrite =
                question->findChild<QLabel *>(QStringLiteral("label_2"))->text() ==
                QStringLiteral("esiste già, vuoi sostituirlo?");
            overwriteQuestions += overwrite ? 1 : 0;
            const QString button =
                overwrite ? QStringLiteral("noAllPushButton") : QStringLiteral("yesAllPushButton");
            QTest::mouseClick(question->findChild<QPushButton *>(button), Qt::LeftButton);
            return true;
        });
        user.pressInMessageBoxes(QMessageBox::Ok);
        clickWhenEnabled(QStringLiteral("transferFilesToolButton"));
        QVERIFY(user.allPicked());
        QVERIFY(overwriteQuestions <= 1);
        QCOMPARE(user.messages().size(), 2);
        QCOMPARE(user.messages().first(), QStringLiteral("Trasferimento: Tutti i file sono stati "
                                                         "copiati correttamente"));
        QVERIFY(user.messages().last().startsWith(QStringLiteral("Trasferimento: Song copiate: ")));
        QVERIFY(user.messages().last().endsWith(QStringLiteral("\nSong non copiate (errori): 0")));
        QVERIFY(QApplication::activeModalWidget() == nullptr);
    }

    void trigger(const char *action)
    {
        m_window->findChild<QAction *>(QString::fromLatin1(action))->trigger();
    }

    int rows() const
    {
        const auto *view =
            m_window->findChild<QTableView *>(QStringLiteral("userLibraryTableView"));
        QAbstractItemModel *const model = view->model();
        while (model->canFetchMore({}))
            model->fetchMore({});
        return model->rowCount();
    }

    QString m_card;      ///< the memory, empty at first
    QStringList m_songs; ///< forty
    std::unique_ptr<MainWindow> m_window;

private:
    void makeSongs()
    {
        const QString music = m_dir.filePath(QStringLiteral("music/"));
        const QStringList midi = samplesongs::installedMidiFiles();
        QVERIFY2(midi.size() >= 30, "the MIDI files of openttd-openmsx are needed");
        for (int i = 0; i < 28; ++i) {
            m_songs << music + QStringLiteral("SONG%1.MID").arg(i, 2, 10, QLatin1Char('0'));
            QVERIFY(QFile::copy(midi[i], m_songs.last()));
        }
        for (const QString &longName : {midi[28], midi[29]}) {
            m_songs << music + QStringLiteral("A long name ") + QFileInfo(longName).fileName();
            QVERIFY(QFile::copy(longName, m_songs.last()));
        }
        for (int i = 0; i < 4; ++i) {
            m_songs << music + QStringLiteral("SOUND%1.mp3").arg(i);
            QVERIFY(samplesongs::makeMp3(m_songs.last(),
                                         {QStringLiteral("Città %1").arg(i),
                                          QStringLiteral("Traditional"), QStringLiteral("Folk")}));
        }
        int number = 0;
        for (const char *magic : {"_MF3", "_MF4", "_MF5"}) {
            m_songs << music + QStringLiteral("PACK%1.mf%2").arg(number).arg(number + 3);
            QVERIFY(samplesongs::writeFile(
                m_songs.last(),
                samplesongs::mfxBytes(magic, samplesongs::readFile(midi[number]),
                                      {QStringLiteral("Packed %1").arg(number),
                                       QStringLiteral("Artist"), QStringLiteral("Waltz")})));
            ++number;
        }
        for (const char *title : {"Greensleeves", "Santa Lucia", "Amazing Grace"}) {
            m_songs << music + QStringLiteral("ABC%1.mid").arg(number++);
            QVERIFY(samplesongs::makeMidi(m_songs.last(), abcTune(title)));
        }
        QCOMPARE(m_songs.size(), 40);
    }

    QTemporaryDir m_dir;
};
