#include "windows/dataeditdialog.h"

#include "formats/songnames.h"
#include "library/lostcharacters.h"
#include "windows/playerbar.h"

#include "ui_dataeditdialog.h"

#include <QCompleter>
#include <QEvent>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <limits>

namespace
{

constexpr int secondsPerMinute = 60;

QRegularExpression digits(int most)
{
    return QRegularExpression(QStringLiteral("^[0-9]{%1}").arg(most));
}

/**
 * Names are offered in a list below the box: completed in place, a name that is the beginning of a
 * listed one could not be entered without deleting the rest.
 */
void completeInPopup(QComboBox *combo)
{
    combo->completer()->setCompletionMode(QCompleter::PopupCompletion);
    combo->completer()->setFilterMode(Qt::MatchContains);
}

/**
 * By itself a combo box replaces a text that differs from a listed one only by letter case as soon
 * as its field is left. What the song holds, or the user typed, has to stay.
 */
void keepLetterCase(const QComboBox *combo)
{
    const QLineEdit *const field = combo->lineEdit();
    QObject::disconnect(field, &QLineEdit::returnPressed, combo, nullptr);
    QObject::disconnect(field, &QLineEdit::editingFinished, combo, nullptr);
}

void fill(QComboBox *combo, const QStringList &items)
{
    combo->clear();
    combo->addItems(items);
}

void select(QComboBox *combo, const QString &text)
{
    combo->setCurrentIndex(combo->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

/** Shows any text, also one that is not in the list. */
void showText(QComboBox *combo, const QString &text)
{
    select(combo, text);
    combo->setEditText(text);
}

} // namespace

DataEditDialog::DataEditDialog(QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::DataEditDialog)
    , m_bpmValidator(digits(3))
    , m_minutesValidator(digits(2))
    , m_secondsValidator(digits(2))
{
    ui->setupUi(this);
    for (QComboBox *combo : {ui->artistComboBox, ui->genreComboBox}) {
        completeInPopup(combo);
        keepLetterCase(combo);
    }
    ui->bpmLineEdit->setValidator(&m_bpmValidator);
    ui->lenMmLineEdit->setValidator(&m_minutesValidator);
    ui->lenSsLineEdit->setValidator(&m_secondsValidator);
    for (const QLineEdit *field : {ui->titleLineEdit, ui->authorLineEdit,
                                   ui->artistComboBox->lineEdit(), ui->genreComboBox->lineEdit()})
        connect(field, &QLineEdit::textChanged, this, &DataEditDialog::showLostCharacters);
    m_player = new PlayerBar(this);
    ui->verticalLayout->insertWidget(ui->verticalLayout->indexOf(ui->horizontalLayout), m_player);
    m_player->followInTabOrder(ui->bpmLineEdit);
    // Its line is kept free, so that nothing moves while the user types.
    ui->lostCharactersLabel->setMinimumHeight(ui->titleCaptionLabel->sizeHint().height());
}

DataEditDialog::~DataEditDialog() = default;

void DataEditDialog::setOthers(Others others)
{
    m_others = others;
    for (QCheckBox *box : {ui->checkBoxToAllTitle, ui->checkBoxToAllArtist, ui->checkBoxToAllGenre,
                           ui->checkBoxToAllAuthor})
        box->setVisible(others != Others::None);
}

void DataEditDialog::setArtistsCombo(const QStringList &artists)
{
    fill(ui->artistComboBox, artists);
}

void DataEditDialog::setGenresCombo(const QStringList &genres)
{
    fill(ui->genreComboBox, genres);
}

void DataEditDialog::setKeysCombo(const QStringList &keys)
{
    fill(ui->keyComboBox, QStringList(QString()) + keys);
}

void DataEditDialog::setOtherInfo(const SongInfo &info)
{
    ui->fileNameLabel->setText(info.fileName);
    ui->formatLabel->setText(info.format);
    m_player->setSong(info.fileName);
    ui->titleLineEdit->setText(info.title);
    ui->authorLineEdit->setText(info.author);
    showText(ui->artistComboBox, info.artist);
    showText(ui->genreComboBox, info.genre);
    ui->lenMmLineEdit->setText(QString::number(info.length / secondsPerMinute));
    ui->lenSsLineEdit->setText(QString::number(info.length % secondsPerMinute));
    select(ui->keyComboBox, info.key);
    ui->bpmLineEdit->setText(QString::number(info.userBpm));
    m_song = info;

    for (QCheckBox *box : {ui->checkBoxToAllTitle, ui->checkBoxToAllArtist, ui->checkBoxToAllGenre,
                           ui->checkBoxToAllAuthor})
        box->setChecked(false);
    ui->checkBoxToAllTitle->setEnabled(false);
    ui->radioButtonTitle1->setChecked(true);
    m_applyToAllAuthor = m_applyToAllArtist = m_applyToAllGenre = m_applyToAllTitle = false;
    ui->titleLineEdit->setFocus();
}

void DataEditDialog::getInfo(SongInfo &info) const
{
    info.title = ui->titleLineEdit->text().trimmed();
    info.author = ui->authorLineEdit->text().trimmed();
    info.artist = ui->artistComboBox->currentText().trimmed();
    info.genre = ui->genreComboBox->currentText().trimmed();
    info.key = ui->keyComboBox->currentText().trimmed();
    // toInt gives 0 for what is no number, which is what an empty field means here.
    const qint64 length = qint64{ui->lenMmLineEdit->text().toInt()} * secondsPerMinute +
                          ui->lenSsLineEdit->text().toInt();
    info.length = static_cast<qint32>(std::min(length, qint64{std::numeric_limits<qint32>::max()}));
    info.userBpm = ui->bpmLineEdit->text().toInt();
}

bool DataEditDialog::hasKeyChoice() const
{
    return ui->keyComboBox->currentIndex() >= 0;
}

void DataEditDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    // The form holds no text for the widgets that the song fills, so nothing of it is undone.
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    showLostCharacters();
}

void DataEditDialog::on_radioButtonTitle1_clicked(bool checked)
{
    if (!checked)
        return;
    ui->checkBoxToAllTitle->setChecked(false);
    ui->checkBoxToAllTitle->setEnabled(false);
    m_applyToAllTitle = false;
    ui->titleLineEdit->setText(m_song.title);
}

void DataEditDialog::on_radioButtonTitle2_clicked(bool checked)
{
    if (!checked)
        return;
    ui->checkBoxToAllTitle->setEnabled(true);
    ui->titleLineEdit->setText(songnames::titleFromFileName(m_song.fileName));
}

void DataEditDialog::on_checkBoxToAllTitle_clicked(bool checked)
{
    Q_UNUSED(checked)
    m_applyToAllTitle = confirmed(ui->checkBoxToAllTitle,
                                  tr("Il titolo di tutte le song della lista verrà sovrascritto "
                                     "non il nome del file, sei sicuro?")) &&
                        ui->checkBoxToAllTitle->isEnabled();
}

void DataEditDialog::on_checkBoxToAllArtist_clicked(bool checked)
{
    Q_UNUSED(checked)
    m_applyToAllArtist = confirmed(ui->checkBoxToAllArtist,
                                   tr("L'interprete inserito verrà applicato a tutte le song della "
                                      "lista, sei sicuro?"));
}

void DataEditDialog::on_checkBoxToAllGenre_clicked(bool checked)
{
    Q_UNUSED(checked)
    m_applyToAllGenre = confirmed(ui->checkBoxToAllGenre,
                                  tr("Il genere inserito verrà applicato a tutte le song della "
                                     "lista, sei sicuro?"));
}

void DataEditDialog::on_checkBoxToAllAuthor_clicked(bool checked)
{
    Q_UNUSED(checked)
    m_applyToAllAuthor = confirmed(ui->checkBoxToAllAuthor,
                                   tr("L'autore inserito verrà applicato a tutte le song della "
                                      "lista, sei sicuro?"));
}

void DataEditDialog::on_exitPushButton_clicked()
{
    reject();
}

void DataEditDialog::on_savePushButton_clicked()
{
    accept();
}

void DataEditDialog::showLostCharacters()
{
    const QString lost =
        lostCharacters(ui->titleLineEdit->text() + ui->artistComboBox->currentText() +
                       ui->genreComboBox->currentText() + ui->authorLineEdit->text());
    ui->lostCharactersLabel->setText(
        lost.isEmpty() ? QString() : tr("Il player mostrerà \"?\" al posto di: %1").arg(lost));
}

/** Asks when the box was just checked, unchecks it unless the answer is yes; its final state. */
bool DataEditDialog::confirmed(QCheckBox *box, const QString &question)
{
    if (!box->isChecked())
        return false;
    const QString asked =
        m_others == Others::Chosen
            ? tr("Il valore inserito verrà applicato a tutte le song scelte, sei sicuro?")
            : question;
    QMessageBox message(QMessageBox::Question, tr("ATTENZIONE"), asked,
                        QMessageBox::Yes | QMessageBox::No, this);
    message.setTextFormat(Qt::PlainText);
    // Many files are at stake, so no button may answer for the user: a message box would choose
    // its first button by itself.
    for (QAbstractButton *button : message.buttons())
        qobject_cast<QPushButton *>(button)->setAutoDefault(false);
    message.setFocus();
    box->setChecked(message.exec() == QMessageBox::Yes);
    return box->isChecked();
}

std::optional<SongEdit> editInDialog(DataEditDialog &dialog, const Database &database,
                                     const SongInfo &info)
{
    dialog.setArtistsCombo(database.artistsList());
    dialog.setGenresCombo(database.genresList());
    dialog.setKeysCombo(MetaSong::getKeysList());
    dialog.setOtherInfo(info);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;

    SongEdit edit;
    edit.info = info;
    dialog.getInfo(edit.info);
    // In MP3 files people have keys of any notation. What cannot be chosen must not go by itself.
    const bool isMp3 = info.format == MetaSong::getFormatString(SongInfo::FileMp3);
    if (isMp3 && !dialog.hasKeyChoice())
        edit.info.key = info.key;
    edit.titleToAll = dialog.isApplyToAllFname();
    edit.artistToAll = dialog.isApplyToAllArtist();
    edit.genreToAll = dialog.isApplyToAllGenre();
    edit.authorToAll = dialog.isApplyToAllAuthor();
    return edit;
}
