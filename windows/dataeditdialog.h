// The dialog in which the user changes one song's data.
#pragma once

#include "formats/songinfo.h"
#include "library/songeditor.h"

#include <QDialog>
#include <QRegularExpressionValidator>
#include <QScopedPointer>

class PlayerBar;
class QCheckBox;

QT_BEGIN_NAMESPACE
namespace Ui
{
class DataEditDialog;
}
QT_END_NAMESPACE

/**
 * Created once and filled anew for each song: setArtistsCombo, setGenresCombo and setKeysCombo give
 * the choices, setOtherInfo the song, in this order. exec() returns 1 when the user saves, 0
 * otherwise; getInfo and the isApplyToAll members then tell what was entered. The dialog follows a
 * change of language without losing anything that the user typed.
 */
class DataEditDialog : public QDialog
{
    Q_OBJECT

public:
    explicit DataEditDialog(QWidget *parent = nullptr);
    ~DataEditDialog() override;

    /** Which other songs the boxes "to all" are about. */
    enum class Others {
        List,   ///< every song of the list
        Chosen, ///< those that were chosen together with the one that is shown
        None    ///< there are none: the boxes are not shown
    };

    /** Every song of the list, unless it is set. */
    void setOthers(Others others);

    /** Replaces the artists to choose from; any other name can be typed. */
    void setArtistsCombo(const QStringList &artists);

    /** Replaces the genres to choose from; any other genre can be typed. */
    void setGenresCombo(const QStringList &genres);

    /** Replaces the keys to choose from; an empty one, for "no key", stands before them. */
    void setKeysCombo(const QStringList &keys);

    /**
     * Shows the song and takes back every choice of the last use. A key that is not among the keys
     * leaves the key box without a choice.
     */
    void setOtherInfo(const SongInfo &info);

    /**
     * Writes title, artist, genre, author, length, key and tempo as entered, without white space
     * around them, and leaves the other fields as they are. A number that is missing or invalid
     * counts as 0.
     */
    void getInfo(SongInfo &info) const;

    /** True when every other song is to get this author. */
    bool isApplyToAllAuthor() const { return m_applyToAllAuthor; }

    /** True when every other song is to get this artist. */
    bool isApplyToAllArtist() const { return m_applyToAllArtist; }

    /** True when every other song is to get this genre. */
    bool isApplyToAllGenre() const { return m_applyToAllGenre; }

    /** True when every other song is to get its own file name as its title. */
    bool isApplyToAllFname() const { return m_applyToAllTitle; }

    /**
     * False while neither a key nor "no key" is chosen: the song's own key is not in the list, and
     * the user has not chosen another.
     */
    bool hasKeyChoice() const;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_radioButtonTitle1_clicked(bool checked);
    void on_radioButtonTitle2_clicked(bool checked);
    void on_checkBoxToAllTitle_clicked(bool checked);
    void on_checkBoxToAllArtist_clicked(bool checked);
    void on_checkBoxToAllGenre_clicked(bool checked);
    void on_checkBoxToAllAuthor_clicked(bool checked);
    void on_exitPushButton_clicked();
    void on_savePushButton_clicked();

private:
    void showLostCharacters();
    bool confirmed(QCheckBox *box, const QString &question);

    const QScopedPointer<Ui::DataEditDialog> ui;
    PlayerBar *m_player = nullptr;
    SongInfo m_song; ///< as it was given; offers its title and file name as titles
    QRegularExpressionValidator m_bpmValidator;
    QRegularExpressionValidator m_minutesValidator;
    QRegularExpressionValidator m_secondsValidator;
    Others m_others = Others::List;
    bool m_applyToAllAuthor = false;
    bool m_applyToAllArtist = false;
    bool m_applyToAllGenre = false;
    bool m_applyToAllTitle = false;
};

/**
 * Runs the dialog for the song, with the catalogue's artists and genres and all keys to choose
 * from: the AskEdit of a window.
 */
std::optional<SongEdit> editInDialog(DataEditDialog &dialog, const Database &database,
                                     const SongInfo &info);
