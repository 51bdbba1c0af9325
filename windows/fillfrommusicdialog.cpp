#include "windows/fillfrommusicdialog.h"

#include "formats/metasong.h"
#include "library/severaleditor.h"
#include "windows/acceptafterwork.h"
#include "windows/musicoffersmodel.h"
#include "windows/runreportbox.h"
#include "windows/shownprogress.h"

#include "ui_fillfrommusicdialog.h"

#include <QEvent>
#include <QHeaderView>
#include <QSet>
#include <QShortcut>

#include <iterator>
#include <utility>

namespace
{

constexpr int fileColumnWidth = 150;
constexpr int noteColumnWidth = 150;
constexpr int markersColumn =
    MusicOffersModel::beforeColumn(static_cast<int>(std::size(MusicOffer::values)) - 1);

QList<MusicOffer> measured(const QStringList &paths, QWidget *parent)
{
    Progress *shown = nullptr;
    ShownProgress progress(shown, FillFromMusicDialog::tr("Completa dalla musica"),
                           FillFromMusicDialog::tr("Misuro le song..."),
                           static_cast<int>(paths.size()), parent);
    return MusicOffer::ofSongs(paths, progress);
}

} // namespace

FillFromMusicDialog::FillFromMusicDialog(const Songs &songs, OpenHistory openHistory,
                                         QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::FillFromMusicDialog)
    , m_openHistory(std::move(openHistory))
    , m_model(new MusicOffersModel(this))
    , m_stopped(songs.stopped)
    , m_others(songs.others)
{
    ui->setupUi(this);
    m_model->add(songs.measured);
    setUpTable();
    connect(ui->othersCheckBox, &QCheckBox::toggled, this, &FillFromMusicDialog::showOthers);
    connect(ui->guessesCheckBox, &QCheckBox::clicked, m_model, &MusicOffersModel::tickGuesses);
    connect(ui->allPushButton, &QPushButton::clicked, this, [this] { m_model->tickAdvised(true); });
    connect(ui->nonePushButton, &QPushButton::clicked, this,
            [this] { m_model->tickAdvised(false); });
    connect(ui->applyPushButton, &QPushButton::clicked, this, &FillFromMusicDialog::apply);
    connect(ui->cancelPushButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_model, &MusicOffersModel::choiceChanged, this, &FillFromMusicDialog::showSummary);
    showSummary();
    ui->songsTableView->setFocus();
}

FillFromMusicDialog::~FillFromMusicDialog() = default;

FillFromMusicDialog::Songs FillFromMusicDialog::measure(const QList<SongInfo> &songs,
                                                        QWidget *parent)
{
    const QString mp3 = MetaSong::getFormatString(SongInfo::FileMp3);
    Songs result;
    QSet<QString> known; // the list may hold a file twice
    QStringList first;
    for (const SongInfo &song : songs) {
        if (known.contains(song.fileName))
            continue;
        known.insert(song.fileName);
        // What marks the sections of a song stands in its file only; MP3s have no such marks.
        const bool saysAll = song.format == mp3 && song.length > 0;
        (saysAll ? result.others : first).append(song.fileName);
    }
    result.measured = measured(first, parent);
    result.stopped = first.mid(result.measured.size());
    return result;
}

void FillFromMusicDialog::setUpTable()
{
    QTableView *const table = ui->songsTableView;
    table->setModel(m_model);
    table->verticalHeader()->hide();
    constexpr int lookedAt = 100;
    table->horizontalHeader()->setResizeContentsPrecision(lookedAt);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->setColumnWidth(MusicOffersModel::fileColumn, fileColumnWidth);
    table->setColumnWidth(MusicOffersModel::noteColumn, noteColumnWidth);
    connect(m_model, &QAbstractItemModel::modelReset, this, &FillFromMusicDialog::showColumns);
    showColumns();
    auto *const space = new QShortcut(Qt::Key_Space, table, nullptr, nullptr, Qt::WidgetShortcut);
    connect(space, &QShortcut::activated, this,
            [this, table] { m_model->toggle(table->selectionModel()->selectedIndexes()); });
}

/** There is room for those columns alone that songs have something in. */
void FillFromMusicDialog::showColumns()
{
    QTableView *const table = ui->songsTableView;
    for (const int column : {MusicOffersModel::noteColumn, markersColumn})
        table->setColumnHidden(column, !m_model->isUsed(column));
    for (int column = MusicOffersModel::beforeColumn(0); column < markersColumn; ++column) {
        constexpr int bolder = 12; // a value that is ticked
        table->resizeColumnToContents(column);
        table->setColumnWidth(column, table->columnWidth(column) + bolder);
    }
}

void FillFromMusicDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    m_model->retranslate();
    showColumns();
}

/** The songs that were left to be measured are so when they are to be seen. */
void FillFromMusicDialog::showOthers(bool isAll)
{
    const QStringList paths = m_stopped + m_others;
    if (isAll && !paths.isEmpty()) {
        const QList<MusicOffer> offers = measured(paths, this);
        m_stopped = paths.mid(offers.size());
        m_others.clear();
        m_model->add(offers);
    }
    m_model->setAllShown(isAll);
    showSummary();
}

void FillFromMusicDialog::showSummary()
{
    const int changed = m_model->changed();
    QStringList texts{tr("%n song cambiano", nullptr, changed)};
    if (m_model->unmeasured() > 0)
        texts << tr("%n non misurabili per intero", nullptr, m_model->unmeasured());
    if (!m_stopped.isEmpty())
        texts << tr("interrotto: %n non misurate", nullptr, static_cast<int>(m_stopped.size()));
    if (m_model->rowCount() == 0)
        texts = QStringList{tr("A nessuna song manca un valore che la musica può dare")};
    ui->summaryLabel->setText(texts.join(QStringLiteral(", ")));
    ui->applyPushButton->setEnabled(changed > 0);
    const int guesses = m_model->guesses();
    ui->guessesCheckBox->setEnabled(guesses > 0);
    ui->guessesCheckBox->setChecked(guesses > 0 && m_model->tickedGuesses() == guesses);
}

void FillFromMusicDialog::apply()
{
    const QList<SeveralSong> songs = m_model->chosen();
    SeveralEditor::Report report;
    {
        SeveralEditor editor(
            [this](const SongInfo &now, SaveFailure failure) { emit tried(now, failure); });
        if (m_openHistory)
            editor.setHistory(
                [this](HistoryJob::Kind) { return m_openHistory(HistoryJob::Kind::Measure); });
        Progress *shown = nullptr;
        ShownProgress progress(shown, windowTitle(), tr("Scrivo le song..."),
                               static_cast<int>(songs.size()), this);
        report = editor.run(songs, progress);
    }
    RunReportBox::tell(report.problems, this);
    if (report.written > 0 || !report.stopped)
        acceptAfterWork(*this);
}
