#include "windows/cataloguedialog.h"

#include "library/cataloguetsv.h"
#include "library/songtable.h"
#include "library/userfile.h"
#include "windows/catalogueadding.h"
#include "windows/catalogueentrydialog.h"
#include "windows/filechooser.h"

#include "ui_cataloguedialog.h"

#include <QHeaderView>
#include <QMessageBox>

#include <algorithm>

namespace
{

struct EntryColumn {
    enum Number { Title, Artist, Genre, Length, Tempo, Key, FileName };
};

constexpr int titleWidth = 230;
constexpr int artistWidth = 180;
constexpr int shortWidth = 65;

bool holdsText(const SongsDbRecord &entry, const QString &text)
{
    const QString texts[] = {entry.title, entry.artist, entry.altartist,
                             entry.genre, entry.author, entry.filename};
    return std::any_of(std::cbegin(texts), std::cend(texts), [&text](const QString &item) {
        return item.contains(text, Qt::CaseInsensitive);
    });
}

QString tableFilter()
{
    return QStringLiteral("TSV (*.tsv *.txt)");
}

} // namespace

CatalogueDialog::CatalogueDialog(const QStringList &songs, QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::CatalogueDialog)
    , m_songs(songs)
{
    ui->setupUi(this);
    QHeaderView *const header = ui->entriesTreeWidget->header();
    header->resizeSection(EntryColumn::Title, titleWidth);
    header->resizeSection(EntryColumn::Artist, artistWidth);
    for (const auto column : {EntryColumn::Length, EntryColumn::Tempo, EntryColumn::Key})
        header->resizeSection(column, shortWidth);
    connect(ui->searchLineEdit, &QLineEdit::textChanged, this, &CatalogueDialog::showEntries);
    connect(ui->entriesTreeWidget, &QTreeWidget::itemSelectionChanged, this,
            &CatalogueDialog::enableButtons);
    connect(ui->entriesTreeWidget, &QTreeWidget::itemActivated, this, &CatalogueDialog::edit);
    connect(ui->addPushButton, &QPushButton::clicked, this, &CatalogueDialog::addSongs);
    connect(ui->importPushButton, &QPushButton::clicked, this, &CatalogueDialog::importTable);
    connect(ui->exportPushButton, &QPushButton::clicked, this, &CatalogueDialog::exportTable);
    connect(ui->editPushButton, &QPushButton::clicked, this, &CatalogueDialog::edit);
    connect(ui->removePushButton, &QPushButton::clicked, this, &CatalogueDialog::remove);
    connect(ui->closePushButton, &QPushButton::clicked, this, &QDialog::reject);
    m_catalogue.open();
    readEntries();
}

CatalogueDialog::~CatalogueDialog() = default;

/** Another program may have changed them, too. */
void CatalogueDialog::readEntries()
{
    m_entries = m_catalogue.entries();
    showEntries();
}

void CatalogueDialog::showEntries()
{
    const QString text = ui->searchLineEdit->text().trimmed();
    QList<QTreeWidgetItem *> items;
    for (const SongsDbRecord &entry : std::as_const(m_entries)) {
        if (!holdsText(entry, text))
            continue;
        const QString artist = entry.altartist.isEmpty() ? entry.artist : entry.altartist;
        items.append(new QTreeWidgetItem(
            {entry.title, artist, entry.genre, SongTable::lengthText(entry.length),
             entry.bpm > 0 ? QString::number(entry.bpm) : QString(), entry.key, entry.filename}));
    }
    ui->entriesTreeWidget->clear();
    ui->entriesTreeWidget->addTopLevelItems(items);
    ui->countLabel->setText(tr("Voci: %1 di %2").arg(items.size()).arg(m_entries.size()));
    // A catalogue that cannot be used says so in place of what it is good for.
    if (!m_catalogue.problem().isEmpty())
        ui->infoLabel->setText(m_catalogue.problem());
    enableButtons();
}

void CatalogueDialog::enableButtons()
{
    const bool isUsable = m_catalogue.problem().isEmpty();
    const auto chosen = ui->entriesTreeWidget->selectedItems().size();
    ui->addPushButton->setEnabled(isUsable && !m_songs.isEmpty());
    ui->importPushButton->setEnabled(isUsable);
    ui->exportPushButton->setEnabled(!m_entries.isEmpty());
    ui->editPushButton->setEnabled(chosen == 1);
    ui->removePushButton->setEnabled(chosen > 0);
}

QStringList CatalogueDialog::chosenNames() const
{
    QStringList names;
    const QList<QTreeWidgetItem *> items = ui->entriesTreeWidget->selectedItems();
    for (const QTreeWidgetItem *const item : items)
        names.append(item->text(EntryColumn::FileName));
    return names;
}

void CatalogueDialog::addSongs()
{
    if (const auto paths = CatalogueAdding::addSongs(m_catalogue, m_songs, this))
        emit added(*paths);
    readEntries();
}

void CatalogueDialog::edit()
{
    const QStringList names = chosenNames();
    const auto found =
        std::find_if(m_entries.cbegin(), m_entries.cend(), [&names](const SongsDbRecord &entry) {
            return names.size() == 1 && entry.filename == names.constFirst();
        });
    if (found == m_entries.cend())
        return;
    CatalogueEntryDialog dialog(*found, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const SongsDbRecord changed = dialog.entry();
    const bool isOther =
        changed.filename != names.constFirst() && !m_catalogue.known({changed.filename}).isEmpty();
    if (isOther && QMessageBox::question(
                       this, tr("Il mio catalogo"),
                       tr("C'è già una voce con questo nome del file. Sostituirla?"),
                       QMessageBox::Yes | QMessageBox::No, QMessageBox::No) != QMessageBox::Yes)
        return;
    if (!m_catalogue.change(names.constFirst(), changed))
        QMessageBox::critical(this, tr("Il mio catalogo"),
                              OwnCatalogue::problem(OwnCatalogue::State::Unwritable));
    readEntries();
}

void CatalogueDialog::remove()
{
    const QStringList names = chosenNames();
    if (names.isEmpty() ||
        QMessageBox::question(this, tr("Il mio catalogo"),
                              tr("Eliminare %n voci dal catalogo? Le song restano come sono.",
                                 nullptr, static_cast<int>(names.size())),
                              QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::No) != QMessageBox::Yes)
        return;
    if (!m_catalogue.remove(names))
        QMessageBox::critical(this, tr("Il mio catalogo"),
                              OwnCatalogue::problem(OwnCatalogue::State::Unwritable));
    readEntries();
}

void CatalogueDialog::importTable()
{
    const QString path =
        filechooser::openFile(this, tr("Importa voci"), QString(), {tableFilter()});
    if (path.isEmpty())
        return;
    CatalogueAdding::importTable(m_catalogue, path, this);
    readEntries();
}

void CatalogueDialog::exportTable()
{
    const QString path =
        filechooser::saveFile(
            this, {tr("Esporta voci"), QString(), {tableFilter()}, QStringLiteral("tsv"), {}})
            .path;
    if (path.isEmpty())
        return;
    const QString problem = UserFile::write(path, CatalogueTsv::text(m_entries));
    if (!problem.isEmpty())
        QMessageBox::critical(this, tr("Il mio catalogo"), problem);
}
