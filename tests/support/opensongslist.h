// The window that writes the list of songs, for its tests.
#pragma once

#include "devindex/index.h"
#include "library/settings.h"
#include "support/mountedcard.h"
#include "support/userdriver.h"
#include "windows/songslistdialog.h"

#include <QSettings>
#include <QTest>

#include <memory>

namespace opensongslist
{

inline QByteArray song(const QByteArray &title, const QByteArray &artist, const QByteArray &genre)
{
    using namespace songbytes;
    return midiFile({track(metaEvent(3, title) + kravoEvent(2, artist) + kravoEvent(1, genre) +
                           markerEvent(1, "Intro") + notes())});
}

class SongsListFixture : public QObject
{
protected:
    void init();
    void cleanup();

    template <typename Widget>
    Widget *child(const char *name) const
    {
        auto *const found = m_dialog->findChild<Widget *>(QString::fromLatin1(name));
        if (found == nullptr)
            qFatal("The dialog has no %s", name);
        return found;
    }
    void click(const char *button)
    {
        QTest::mouseClick(child<QPushButton>(button), Qt::LeftButton);
    }
    void typePath(const QString &path) { child<QLineEdit>("lineEditPath")->setText(path); }
    void typeFile(const QString &path) { child<QLineEdit>("lineEditFile")->setText(path); }
    QString listPath() const { return m_card->music() + QStringLiteral("/list.csv"); }
    QByteArray list() const;
    void makeIndex() const;
    void open();

    std::unique_ptr<MountedCard> m_card;
    std::unique_ptr<SongsListDialog> m_dialog;
    std::unique_ptr<UserDriver> m_user;
    QString m_workingFolder;
};

/** Every test starts with the dialog open, a card with four songs and a file in its fields. */
inline void SongsListFixture::init()
{
    QSettings(settings::organisation, settings::application).clear();
    m_card = std::make_unique<MountedCard>();
    m_workingFolder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_card->music()));
    m_card->writeOnCard(QStringLiteral("pop/1.mid"), song("Delta", "Zoe", "Rock"));
    m_card->writeOnCard(QStringLiteral("pop/2.mid"), song("Alfa", "Zoe", "Ballad"));
    m_card->writeOnCard(QStringLiteral("3.mid"), song("Charlie", "Anna", "Rock"));
    m_card->writeOnCard(QStringLiteral("4.mid"), song("Bravo", "Anna", "Waltz"));
    m_user = std::make_unique<UserDriver>();
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    open();
    typePath(m_card->root());
    typeFile(listPath());
}

inline void SongsListFixture::cleanup()
{
    QVERIFY(QDir::setCurrent(m_workingFolder));
    m_dialog.reset();
    m_user.reset();
    m_card.reset();
}

inline void SongsListFixture::open()
{
    m_dialog = std::make_unique<SongsListDialog>();
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
}

inline QByteArray SongsListFixture::list() const
{
    QFile file(listPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

inline void SongsListFixture::makeIndex() const
{
    Index index;
    QVERIFY(index.createIndex(m_card->root()));
}

} // namespace opensongslist
