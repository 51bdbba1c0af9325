// The dialog in which a song is edited, for its tests.
#pragma once

#include "support/modalanswers.h"
#include "windows/dataeditdialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

namespace openeditdialog
{

inline const QString titleBox = QStringLiteral("checkBoxToAllTitle");
inline const QString artistBox = QStringLiteral("checkBoxToAllArtist");
inline const QString genreBox = QStringLiteral("checkBoxToAllGenre");
inline const QString authorBox = QStringLiteral("checkBoxToAllAuthor");

inline SongInfo someSong()
{
    SongInfo info;
    info.title = QStringLiteral("La mia canzone");
    info.artist = QStringLiteral("Trio Lescano");
    info.genre = QStringLiteral("SWING");
    info.author = QStringLiteral("D. Olivieri");
    info.length = 125;
    info.userBpm = 96;
    info.key = QStringLiteral("A-");
    info.fileName = QStringLiteral("/music/Song.Name.mid");
    info.format = QStringLiteral("MIDI");
    return info;
}

/** A dialog on screen, filled with someSong() and short lists to choose from. */
class OpenDialog
{
public:
    OpenDialog()
        : OpenDialog(someSong())
    {
    }

    explicit OpenDialog(const SongInfo &info)
    {
        dialog.setArtistsCombo({QStringLiteral("Adriano"), QStringLiteral("Zelda")});
        dialog.setGenresCombo({QStringLiteral("POP"), QStringLiteral("JAZZ")});
        dialog.setKeysCombo({QStringLiteral("C"), QStringLiteral("A-"), QStringLiteral("Bb")});
        dialog.setOtherInfo(info);
        dialog.show();
    }

    QLineEdit *edit(const char *name) const { return child<QLineEdit>(name); }
    QComboBox *combo(const char *name) const { return child<QComboBox>(name); }
    QCheckBox *box(const QString &name) const { return dialog.findChild<QCheckBox *>(name); }

    template <typename Widget>
    Widget *child(const char *name) const
    {
        return dialog.findChild<Widget *>(QString::fromLatin1(name));
    }

    void click(const char *name) const
    {
        QTest::mouseClick(child<QAbstractButton>(name), Qt::LeftButton);
    }

    void type(const char *name, const QString &text) const
    {
        edit(name)->setFocus();
        edit(name)->selectAll();
        QTest::keyClicks(edit(name), text);
    }

    SongInfo result(SongInfo info = SongInfo()) const
    {
        dialog.getInfo(info);
        return info;
    }

    bool flag(const QString &boxName) const
    {
        if (boxName == titleBox)
            return dialog.isApplyToAllFname();
        if (boxName == artistBox)
            return dialog.isApplyToAllArtist();
        return boxName == genreBox ? dialog.isApplyToAllGenre() : dialog.isApplyToAllAuthor();
    }

    DataEditDialog dialog;
};

class EditDialogFixture : public QObject
{
protected:
    void init();
};

inline void EditDialogFixture::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("connectSlotsByName|QObject::connect")));
}

} // namespace openeditdialog
