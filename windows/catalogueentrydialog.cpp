#include "windows/catalogueentrydialog.h"

#include "library/owncatalogue.h"
#include "library/songtable.h"
#include "windows/roomfortext.h"

#include "ui_catalogueentrydialog.h"

#include <QPushButton>

CatalogueEntryDialog::CatalogueEntryDialog(const SongsDbRecord &entry, QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::CatalogueEntryDialog)
{
    ui->setupUi(this);
    ui->titleLineEdit->setText(entry.title);
    ui->artistLineEdit->setText(entry.altartist);
    ui->sortedArtistLineEdit->setText(entry.artist);
    ui->genreLineEdit->setText(entry.genre);
    ui->authorLineEdit->setText(entry.author);
    ui->lengthLineEdit->setText(SongTable::lengthText(entry.length));
    if (entry.bpm > 0)
        ui->tempoLineEdit->setText(QString::number(entry.bpm));
    ui->keyLineEdit->setText(entry.key);
    ui->fileLineEdit->setText(entry.filename);
    QStringList lines;
    for (const Marker &marker : entry.markers)
        lines.append(QString::number(marker.bar) + QLatin1Char(' ') + marker.text);
    ui->markersPlainTextEdit->setPlainText(lines.join(QLatin1Char('\n')));
    const QList<QLineEdit *> fields = findChildren<QLineEdit *>();
    for (QLineEdit *const field : fields)
        connect(field, &QLineEdit::textChanged, this, &CatalogueEntryDialog::judge);
    connect(ui->markersPlainTextEdit, &QPlainTextEdit::textChanged, this,
            &CatalogueEntryDialog::judge);
    connect(ui->savePushButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->cancelPushButton, &QPushButton::clicked, this, &QDialog::reject);
    new RoomForText(this);
    judge();
}

CatalogueEntryDialog::~CatalogueEntryDialog() = default;

SongsDbRecord CatalogueEntryDialog::entry() const
{
    SongsDbRecord entry;
    entry.title = ui->titleLineEdit->text().trimmed();
    entry.altartist = ui->artistLineEdit->text().trimmed();
    entry.artist = ui->sortedArtistLineEdit->text().trimmed();
    entry.genre = ui->genreLineEdit->text().trimmed();
    entry.author = ui->authorLineEdit->text().trimmed();
    entry.length = length().value_or(-1);
    entry.bpm = tempo().value_or(-1);
    entry.key = OwnCatalogue::key(ui->keyLineEdit->text()).value_or(QString());
    entry.filename = ui->fileLineEdit->text().trimmed().toUpper();
    entry.markers = markers().value_or(QList<Marker>());
    return entry;
}

void CatalogueEntryDialog::judge()
{
    QString reason;
    if (ui->titleLineEdit->text().trimmed().isEmpty())
        reason = tr("Manca il titolo.");
    else if (ui->fileLineEdit->text().trimmed().isEmpty())
        reason = tr("Manca il nome del file.");
    else if (!length())
        reason = tr("La durata si scrive in minuti e secondi, per esempio 3:05.");
    else if (!tempo())
        reason = tr("Il tempo è un numero, per esempio 120.");
    else if (!OwnCatalogue::key(ui->keyLineEdit->text()))
        reason = tr("La tonalità non esiste.");
    else if (!markers())
        reason = tr("Ogni riga dei marker ha una misura e un testo, per esempio: 9 Verse1");
    else if (!OwnCatalogue::isValid(entry()))
        reason = tr("Un testo è troppo lungo.");
    ui->reasonLabel->setText(reason);
    ui->savePushButton->setEnabled(reason.isEmpty());
}

/** In seconds, -1 for an empty field; nothing for what is no length. */
std::optional<qint32> CatalogueEntryDialog::length() const
{
    constexpr uint secondsInMinute = 60;
    constexpr uint mostMinutes = OwnCatalogue::longestSong / secondsInMinute;
    const QString text = ui->lengthLineEdit->text().trimmed();
    if (text.isEmpty())
        return -1;
    const QStringList parts = text.split(QLatin1Char(':'));
    bool isMinutes = false;
    bool isSeconds = false;
    const uint minutes = parts.constFirst().toUInt(&isMinutes);
    const uint seconds = parts.constLast().toUInt(&isSeconds);
    if (parts.size() != 2 || !isMinutes || !isSeconds || minutes > mostMinutes ||
        seconds >= secondsInMinute)
        return std::nullopt;
    return static_cast<qint32>(minutes * secondsInMinute + seconds);
}

/** -1 for an empty field; nothing for what is no tempo. */
std::optional<qint32> CatalogueEntryDialog::tempo() const
{
    const QString text = ui->tempoLineEdit->text().trimmed();
    bool isNumber = false;
    const ushort tempo = text.toUShort(&isNumber);
    if (text.isEmpty())
        return -1;
    return isNumber ? std::optional<qint32>(tempo) : std::nullopt;
}

/** Nothing when a line is no marker. */
std::optional<QList<Marker>> CatalogueEntryDialog::markers() const
{
    QList<Marker> markers;
    const QStringList lines = ui->markersPlainTextEdit->toPlainText().split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (line.trimmed().isEmpty())
            continue;
        const qsizetype blank = line.indexOf(QLatin1Char(' '));
        bool isBar = false;
        const quint16 bar =
            QStringView(line).left(blank < 0 ? line.size() : blank).toUShort(&isBar);
        if (!isBar)
            return std::nullopt;
        markers.append({bar, blank < 0 ? QString() : line.mid(blank + 1)});
    }
    return markers;
}
