#include "windows/memorywindow.h"

#include "devindex/mountedvolumes.h"
#include "devindex/sizetext.h"
#include "windows/memorycheckpage.h"
#include "windows/memoryduplicatespage.h"
#include "windows/memoryplaylistspage.h"
#include "windows/memorysongspage.h"
#include "windows/playerbar.h"

#include "ui_memorywindow.h"

#include <QCloseEvent>
#include <QLocale>
#include <QStringList>

#include <utility>

namespace
{

/** In front of a user's sentence, a list of facts. */
const QString separator = QStringLiteral(" · ");

} // namespace

MemoryWindow::MemoryWindow(QWidget *parent)
    : QWidget(parent, Qt::Window)
    , ui(new Ui::MemoryWindow)
{
    ui->setupUi(this);
    makePages();
    connectJob();
    m_chosen.setSingleShot(true);
    m_chosen.setInterval(0);
    connect(&m_chosen, &QTimer::timeout, this, &MemoryWindow::readRequested);
    ui->comboBoxMemory->setPathField(ui->lineEditPath);
    connect(ui->lineEditPath, &QLineEdit::textChanged, this, [this] { m_chosen.start(); });
    connect(ui->pushButtonBrowse, &QPushButton::clicked, ui->comboBoxMemory,
            &MemoryList::browseDir);
    connect(ui->pushButtonReload, &QPushButton::clicked, this, &MemoryWindow::readRequested);
    connect(ui->pushButtonEject, &QPushButton::clicked, this, &MemoryWindow::ejectRequested);
    connect(ui->pushButtonClose, &QPushButton::clicked, this, &QWidget::close);
    setBusy(false);
    showFacts();
    ui->filterLineEdit->setFocus();
}

MemoryWindow::~MemoryWindow() = default;

void MemoryWindow::makePages()
{
    auto *const player = new PlayerBar(ui->songsTab);
    ui->songsLayout->insertWidget(ui->songsLayout->indexOf(ui->songsTableView) + 1, player);
    player->followInTabOrder(ui->songsTableView);
    m_songs = new MemorySongsPage({ui->filterLineEdit, ui->countLabel, ui->songsTableView, player,
                                   ui->pushButtonEdit, ui->pushButtonRename, ui->pushButtonCopy,
                                   ui->pushButtonShow, ui->pushButtonRemove},
                                  this);
    m_playlists = new MemoryPlaylistsPage(ui->playlistsLabel, ui->playlistsListView,
                                          ui->playlistSongsListView, this);
    m_duplicates =
        new MemoryDuplicatesPage({ui->duplicatesLabel, ui->duplicatesTreeWidget,
                                  ui->pushButtonFindDuplicates, ui->pushButtonRemoveDuplicates},
                                 this);
    m_check = new MemoryCheckPage({ui->checkLabel, ui->checkTreeWidget, ui->pushButtonCheck,
                                   ui->pushButtonUpdate, ui->pushButtonRebuild, ui->pushButtonMend},
                                  this);
    connect(ui->pushButtonRemedy, &QPushButton::clicked, this,
            [this] { (isIndexDamaged() ? ui->pushButtonRebuild : ui->pushButtonUpdate)->click(); });
}

void MemoryWindow::connectJob()
{
    connect(ui->pushButtonStop, &QPushButton::clicked, this, [this] {
        m_job.cancel();
        ui->pushButtonStop->setEnabled(false);
    });
    connect(&m_job, &BackgroundJob::began, this, [this] {
        m_focusBefore = focusWidget();
        setBusy(true);
        m_focusSince = focusWidget();
    });
    connect(&m_job, &BackgroundJob::ended, this, [this] {
        m_isReading = false;
        setBusy(false);
        // A button that the user has pressed keeps the focus, unless he has put it elsewhere.
        if (m_focusBefore != nullptr && m_focusBefore != m_focusSince &&
            m_focusBefore->isEnabled() &&
            (focusWidget() == m_focusSince || focusWidget() == nullptr))
            m_focusBefore->setFocus();
    });
    connect(&m_job, &BackgroundJob::progressChanged, this,
            [this](const QString &label, int done, int maximum) {
                // A range of 0 to 0 shows that something goes on.
                ui->jobBar->setRange(0, maximum);
                ui->jobBar->setValue(done);
                if (!label.isEmpty())
                    showMessage(label);
            });
}

QString MemoryWindow::root() const
{
    const QString folder = ui->lineEditPath->text();
    const QString memory = MountedVolumes().getRootDrivePath(folder);
    return memory.isEmpty() ? folder : memory;
}

void MemoryWindow::choose(const QString &folder)
{
    ui->lineEditPath->setText(folder);
}

/** Where only one memory is connected there is nothing to choose. */
void MemoryWindow::chooseOnlyMemory()
{
    const QList<MountedMemory> memories = MountedVolumes().memories();
    if (memories.size() == 1)
        choose(memories.constFirst().path);
}

void MemoryWindow::startReading(std::function<void()> work, std::function<void()> done)
{
    m_isReading = true;
    m_job.start(std::move(work), std::move(done));
}

void MemoryWindow::setContents(const SharedContents &contents)
{
    m_contents = contents;
    m_songs->setContents(contents);
    m_playlists->setContents(contents);
    m_duplicates->setContents(contents);
    m_check->setContents(contents);
    showFacts();
    enableEject();
}

void MemoryWindow::showDuplicates(const QList<memoryduplicates::Group> &groups)
{
    m_songs->addDuplicates(groups);
    m_duplicates->setSameBytes(groups);
}

void MemoryWindow::showMessage(const QString &text)
{
    ui->messageLabel->setText(text);
}

void MemoryWindow::setBusy(bool busy)
{
    for (QWidget *const input :
         {static_cast<QWidget *>(ui->comboBoxMemory), static_cast<QWidget *>(ui->pushButtonBrowse),
          static_cast<QWidget *>(ui->pushButtonReload),
          static_cast<QWidget *>(ui->pushButtonRemedy)})
        input->setEnabled(!busy);
    m_songs->setBusy(busy);
    m_duplicates->setBusy(busy);
    m_check->setBusy(busy);
    ui->jobBar->setRange(0, 0);
    ui->jobBar->setVisible(busy);
    ui->pushButtonStop->setVisible(busy);
    ui->pushButtonStop->setEnabled(busy);
    ui->pushButtonClose->setEnabled(!busy || m_isReading);
    enableEject();
}

void MemoryWindow::enableEject()
{
    const bool isMounted =
        m_contents && m_contents->facts().isMounted && m_contents->facts().isOnMemory;
    const bool canEject = isMounted && m_contents->canEject();
    ui->pushButtonEject->setEnabled(canEject && !m_job.isRunning());
    QString why;
    if (m_contents && !isMounted)
        why = tr("La cartella non è una memoria collegata: non c'è niente da espellere.");
    else if (m_contents && !canEject)
        why = tr("Il servizio del sistema che espelle le memorie non risponde. Espellere la "
                 "memoria dal file manager.");
    ui->pushButtonEject->setToolTip(why);
    ui->pushButtonEject->setAccessibleDescription(why);
}

void MemoryWindow::showFacts()
{
    QStringList facts;
    if (m_contents) {
        facts.append(m_contents->facts().name);
        if (!m_contents->facts().fileSystem.isEmpty())
            facts.append(m_contents->facts().fileSystem);
        facts.append(indexText());
        const qsizetype unreadable = m_contents->memory().unreadableFolders().size();
        if (unreadable > 0)
            facts.append(tr("%n cartelle non leggibili", "", static_cast<int>(unreadable)));
    } else {
        facts.append(tr("Scegliere una memoria"));
    }
    ui->labelFacts->setText(facts.join(separator));
    showRemedy();
    showSpace();
}

QString MemoryWindow::indexText() const
{
    const MemorySongs &memory = m_contents->memory();
    if (memory.indexState() == MemorySongs::IndexState::Absent)
        return tr("senza database: il player non trova nessuna song");
    const QString when = QLocale().toString(memory.indexTime(), QLocale::ShortFormat);
    if (memory.indexState() == MemorySongs::IndexState::Damaged)
        return tr("database danneggiato, del %1").arg(when);
    const int missing = memory.count(MemorySong::State::NotIndexed);
    const int changed = memory.count(MemorySong::State::Changed);
    const int gone = memory.count(MemorySong::State::Gone);
    const auto days = memory.indexTime().daysTo(QDateTime::currentDateTime());
    QStringList parts{tr("database del %1").arg(when)};
    if (days > 0)
        parts.append(tr("di %n giorni fa", "", static_cast<int>(days)));
    if (missing > 0)
        parts.append(tr("mancano %n song", "", missing));
    if (changed > 0)
        parts.append(tr("%n song modificate", "", changed));
    if (gone > 0)
        parts.append(tr("%n song senza file", "", gone));
    if (missing + changed + gone == 0)
        parts.append(tr("completo"));
    return parts.join(QStringLiteral(", "));
}

bool MemoryWindow::isIndexDamaged() const
{
    return m_contents && m_contents->memory().indexState() == MemorySongs::IndexState::Damaged;
}

/** Offers beside the facts what the player needs to find all songs. */
void MemoryWindow::showRemedy()
{
    const bool isDamaged = isIndexDamaged();
    const bool isIncomplete =
        m_contents && (m_contents->memory().indexState() == MemorySongs::IndexState::Absent ||
                       m_contents->memory().count(MemorySong::State::NotIndexed) > 0 ||
                       m_contents->memory().count(MemorySong::State::Changed) > 0 ||
                       m_contents->memory().count(MemorySong::State::Gone) > 0);
    ui->pushButtonRemedy->setText(isDamaged ? tr("Rigenera il database...")
                                            : tr("Aggiorna il database"));
    ui->pushButtonRemedy->setVisible(isDamaged || isIncomplete);
}

void MemoryWindow::showSpace()
{
    const qint64 total = m_contents ? m_contents->facts().totalBytes : -1;
    const qint64 left = m_contents ? m_contents->facts().freeBytes : -1;
    const bool isKnown = total > 0 && left >= 0 && left <= total;
    ui->spaceBar->setEnabled(isKnown);
    ui->spaceBar->setValue(isKnown ? static_cast<int>((total - left) * 1000 / total) : 0);
    ui->spaceBar->setFormat(isKnown
                                ? tr("%1 occupati, %2 liberi di %3")
                                      .arg(sizeText(total - left), sizeText(left), sizeText(total))
                                : QString());
}

void MemoryWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    m_songs->retranslate();
    m_playlists->retranslate();
    m_duplicates->retranslate();
    m_check->retranslate();
    showFacts();
    enableEject();
    showMessage({}); // it was said in the other language
}

void MemoryWindow::closeEvent(QCloseEvent *event)
{
    if (m_job.isRunning() && !m_isReading) {
        event->ignore();
        return;
    }
    m_job.cancel();
    QWidget::closeEvent(event);
}

void MemoryWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier)
        close();
    else if (event->matches(QKeySequence::Find))
        ui->filterLineEdit->setFocus(Qt::ShortcutFocusReason);
    else if (event->matches(QKeySequence::Refresh) && ui->pushButtonReload->isEnabled())
        ui->pushButtonReload->click();
    else
        QWidget::keyPressEvent(event);
}

void MemoryWindow::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    if (ui->lineEditPath->text().isEmpty())
        chooseOnlyMemory();
    m_chosen.start(); // what was read for an earlier look may be old
}
