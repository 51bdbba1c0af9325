#include "windows/editseveraldialog.h"

#include "windows/acceptafterwork.h"
#include "windows/runreportbox.h"
#include "windows/severalsongsmodel.h"
#include "windows/shownprogress.h"

#include "ui_editseveraldialog.h"

#include <QHeaderView>
#include <QMenu>
#include <QShortcut>

#include <utility>

namespace
{

constexpr int songColumnWidth = 200;
constexpr int fieldColumnWidth = 150;

QString exampleOf(const SeveralSong &song)
{
    const QString name = song.before.fileName.section(QLatin1Char('/'), -1);
    if (!song.reason.isEmpty())
        return EditSeveralDialog::tr("Esempio: %1: %2").arg(name, song.reason);
    QStringList values;
    const QList<ChangePreview::Change> changes = song.changes();
    for (const ChangePreview::Change &change : changes)
        values << QStringLiteral("%1: %2").arg(ChangePreview::fieldName(change.field),
                                               change.after.isEmpty() ? ChangePreview::emptyValue()
                                                                      : change.after);
    if (values.isEmpty())
        values << EditSeveralDialog::tr("non cambia");
    return EditSeveralDialog::tr("Esempio: %1: %2").arg(name, values.join(QStringLiteral("; ")));
}

} // namespace

EditSeveralDialog::EditSeveralDialog(const QList<SongInfo> &songs, OpenHistory openHistory,
                                     QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::EditSeveralDialog)
    , m_openHistory(std::move(openHistory))
    , m_model(new SeveralSongsModel(songs, this))
{
    ui->setupUi(this);
    m_later.setSingleShot(true);
    m_later.setInterval(0);
    connect(&m_later, &QTimer::timeout, this, &EditSeveralDialog::preview);
    setUpTable();
    setUpButtons();
    addStep(EditStepForm::Kind::FromName);
    preview();
    ui->stepsListWidget->setFocus();
}

EditSeveralDialog::~EditSeveralDialog() = default;

void EditSeveralDialog::setUpTable()
{
    QTableView *const table = ui->songsTableView;
    table->setModel(m_model);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setDefaultSectionSize(fieldColumnWidth);
    table->setColumnWidth(0, songColumnWidth);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &EditSeveralDialog::showExample);
    connect(m_model, &SeveralSongsModel::choiceChanged, this, &EditSeveralDialog::showSummary);
    auto *const space = new QShortcut(Qt::Key_Space, table, nullptr, nullptr, Qt::WidgetShortcut);
    connect(space, &QShortcut::activated, this, &EditSeveralDialog::toggleSelected);
}

void EditSeveralDialog::setUpButtons()
{
    auto *const kinds = new QMenu(this);
    for (int kind = 0; kind < EditStepForm::kinds; ++kind) {
        const auto added = static_cast<EditStepForm::Kind>(kind);
        kinds->addAction(EditStepForm::kindName(added), this, [this, added] { addStep(added); });
    }
    ui->addPushButton->setMenu(kinds);
    connect(ui->removePushButton, &QPushButton::clicked, this, &EditSeveralDialog::removeStep);
    connect(ui->upToolButton, &QToolButton::clicked, this, [this] { moveStep(-1); });
    connect(ui->downToolButton, &QToolButton::clicked, this, [this] { moveStep(1); });
    connect(ui->stepsListWidget, &QListWidget::currentRowChanged, this,
            &EditSeveralDialog::showStep);
    connect(ui->shownComboBox, &QComboBox::currentIndexChanged, this, [this](int shown) {
        m_model->setShown(static_cast<SeveralSongsModel::Shown>(shown));
        showExample();
    });
    connect(ui->allPushButton, &QPushButton::clicked, this,
            [this] { m_model->setAllChosen(true); });
    connect(ui->nonePushButton, &QPushButton::clicked, this,
            [this] { m_model->setAllChosen(false); });
    connect(ui->applyPushButton, &QPushButton::clicked, this, &EditSeveralDialog::apply);
    connect(ui->cancelPushButton, &QPushButton::clicked, this, &QDialog::reject);
}

EditStepForm *EditSeveralDialog::form(int step) const
{
    return qobject_cast<EditStepForm *>(ui->formsStackedWidget->widget(step));
}

void EditSeveralDialog::addStep(EditStepForm::Kind kind)
{
    auto *const added = new EditStepForm(kind);
    connect(added, &EditStepForm::changed, this, [this] { m_later.start(); });
    ui->formsStackedWidget->addWidget(added);
    QWidget *before = ui->downToolButton;
    const QList<QWidget *> stops = added->tabStops();
    for (QWidget *const stop : stops) {
        setTabOrder(before, stop);
        before = stop;
    }
    ui->stepsListWidget->addItem(EditStepForm::kindName(kind));
    ui->stepsListWidget->setCurrentRow(ui->stepsListWidget->count() - 1);
    m_later.start();
}

void EditSeveralDialog::removeStep()
{
    const int step = ui->stepsListWidget->currentRow();
    if (step < 0)
        return;
    EditStepForm *const removed = form(step);
    ui->formsStackedWidget->removeWidget(removed);
    removed->deleteLater();
    delete ui->stepsListWidget->takeItem(step);
    showStep(ui->stepsListWidget->currentRow());
    m_later.start();
}

void EditSeveralDialog::moveStep(int by)
{
    const int step = ui->stepsListWidget->currentRow();
    const int target = step + by;
    if (step < 0 || target < 0 || target >= ui->stepsListWidget->count())
        return;
    QWidget *const moved = form(step);
    ui->formsStackedWidget->removeWidget(moved);
    ui->formsStackedWidget->insertWidget(target, moved);
    ui->stepsListWidget->insertItem(target, ui->stepsListWidget->takeItem(step));
    ui->stepsListWidget->setCurrentRow(target);
    showStep(target);
    m_later.start();
}

void EditSeveralDialog::showStep(int step)
{
    if (step >= 0)
        ui->formsStackedWidget->setCurrentIndex(step);
    enableStepButtons();
}

void EditSeveralDialog::enableStepButtons()
{
    const int step = ui->stepsListWidget->currentRow();
    ui->removePushButton->setEnabled(step >= 0);
    ui->upToolButton->setEnabled(step > 0);
    ui->downToolButton->setEnabled(step >= 0 && step + 1 < ui->stepsListWidget->count());
}

void EditSeveralDialog::preview()
{
    m_later.stop();
    QList<EditStep> steps;
    for (int step = 0; step < ui->stepsListWidget->count(); ++step)
        steps.append(form(step)->step());
    m_model->setSteps(steps);
    showColumns();
    showExample();
}

/** Shows the fields that change; title and artist while nothing does. */
void EditSeveralDialog::showColumns()
{
    const QList<songfields::Field> &fields = songfields::all();
    const bool changesAny = m_model->preview().changed() > 0;
    for (int i = 0; i < fields.size(); ++i) {
        const songfields::Field field = fields.at(i);
        const bool isShown =
            changesAny ? m_model->changesField(field)
                       : field == songfields::Field::Title || field == songfields::Field::Artist;
        ui->songsTableView->setColumnHidden(SeveralSongsModel::beforeColumn(i), !isShown);
        ui->songsTableView->setColumnHidden(SeveralSongsModel::afterColumn(i), !isShown);
    }
}

void EditSeveralDialog::showExample()
{
    const SeveralSong *const song =
        m_model->song(ui->songsTableView->selectionModel()->currentIndex().row());
    ui->exampleLabel->setText(song == nullptr ? QString() : exampleOf(*song));
}

void EditSeveralDialog::showSummary()
{
    const SeveralPreview &shown = m_model->preview();
    const int chosen = m_model->chosenCount();
    QString text = tr("%n song cambiano", nullptr, chosen) + QStringLiteral(", ") +
                   tr("%n non sono adatte", nullptr, shown.unfit());
    if (!shown.problem().isEmpty())
        text = tr("Passo %1: %2").arg(shown.problemStep() + 1).arg(shown.problem());
    ui->summaryLabel->setText(text);
    ui->applyPushButton->setEnabled(chosen > 0);
}

/** All selected songs become as the first of them was not. */
void EditSeveralDialog::toggleSelected()
{
    QList<int> rows;
    const QModelIndexList selected = ui->songsTableView->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows.append(index.row());
    if (!rows.isEmpty())
        m_model->setChosen(rows, !m_model->isChosen(rows.constFirst()));
}

void EditSeveralDialog::apply()
{
    if (m_later.isActive()) {
        preview(); // what was not seen is not written
        return;
    }
    const QList<SeveralSong> songs = m_model->chosen();
    if (songs.isEmpty())
        return;
    SeveralEditor::Report report;
    {
        SeveralEditor editor(
            [this](const SongInfo &now, SaveFailure failure) { emit tried(now, failure); });
        editor.setHistory(m_openHistory);
        Progress *shown = nullptr;
        ShownProgress progress(shown, tr("Modifica più song"), tr("Scrivo le song..."),
                               static_cast<int>(songs.size()), this);
        report = editor.run(songs, progress);
    }
    RunReportBox::tell(report.problems, this);
    if (report.written > 0 || !report.stopped)
        acceptAfterWork(*this);
}
