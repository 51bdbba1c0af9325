#include "windows/transferplandialog.h"

#include "devindex/sizetext.h"
#include "devindex/songinfoindex.h"
#include "library/settings.h"
#include "storage/writeproblem.h"
#include "windows/messagedetails.h"
#include "windows/transferplanmodel.h"

#include "ui_transferplandialog.h"

#include <QDir>
#include <QMessageBox>
#include <QSettings>

#include <algorithm>
#include <utility>

namespace
{

using State = TransferPlan::State;
using Remedy = TransferPlan::Remedy;

constexpr int watchMilliseconds = 1000;
constexpr int namesInQuestion = 10;

bool wouldLoseSongs(const TransferPlan &plan)
{
    return std::any_of(plan.items.cbegin(), plan.items.cend(), [](const TransferPlan::Item &item) {
        return item.state == State::Collides && !item.isTwin;
    });
}

} // namespace

TransferPlanDialog::TransferPlanDialog(TransferPlan plan, Purpose purpose, QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::TransferPlanDialog)
    , m_plan(std::move(plan))
    , m_model(new TransferPlanModel(m_plan, this))
{
    ui->setupUi(this);
    showIntro(purpose);
    ui->folderLabel->setText(QDir::toNativeSeparators(m_plan.folder));
    ui->remedyPanel->setPlan(m_plan);
    setUpTree();
    ui->othersCheckBox->setVisible(purpose == Purpose::Request);
    if (m_plan.count(State::Remove) == 0) {
        ui->othersCheckBox->setEnabled(false);
        ui->othersCheckBox->setToolTip(tr("Nella cartella non ci sono altre song."));
    }
    ui->asAlwaysPushButton->setVisible(purpose == Purpose::Warning);
    ui->readBackCheckBox->setChecked(m_plan.readBack);

    connect(ui->planTreeView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &TransferPlanDialog::showSelection);
    connect(m_model, &QAbstractItemModel::dataChanged, this, &TransferPlanDialog::refresh);
    connect(ui->remedyPanel, &RemedyPanel::changed, m_model, &TransferPlanModel::refresh);
    connect(ui->othersCheckBox, &QCheckBox::toggled, this, &TransferPlanDialog::showOthers);
    connect(ui->readBackCheckBox, &QCheckBox::toggled, this, [this](bool on) {
        m_plan.readBack = on;
        QSettings(settings::organisation, settings::application).setValue(settings::readBack, on);
    });
    connect(ui->cancelPushButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->asAlwaysPushButton, &QPushButton::clicked, this,
            [this] { finish(TransferUser::Review::AsAlways); });
    connect(ui->carryOutPushButton, &QPushButton::clicked, this, &TransferPlanDialog::carryOut);
    connect(&m_watch, &QTimer::timeout, this, &TransferPlanDialog::refresh);
    m_watch.start(watchMilliseconds);
    refresh();
}

TransferPlanDialog::~TransferPlanDialog() = default;

void TransferPlanDialog::setUpTree()
{
    QTreeView *const tree = ui->planTreeView;
    tree->setModel(m_model);
    QHeaderView *const header = tree->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(TransferPlanModel::Song, QHeaderView::Stretch);
    const int character = fontMetrics().averageCharWidth();
    header->setMinimumSectionSize(10 * character);
    int remedyWidth = 0;
    for (const Remedy remedy : {Remedy::Copy, Remedy::KeepBoth, Remedy::Replace, Remedy::SubFolder,
                                Remedy::Remove, Remedy::Skip}) {
        const QString text = TransferPlanModel::remedyText(State::Differs, remedy);
        remedyWidth = std::max(remedyWidth, fontMetrics().horizontalAdvance(text));
    }
    header->resizeSection(TransferPlanModel::Remedy, remedyWidth + 3 * character);
    header->resizeSection(TransferPlanModel::Place, 26 * character);
    header->resizeSection(TransferPlanModel::Room, 11 * character);
    // The space bar sets the tick of the current cell, which is in the first column.
    connect(tree->selectionModel(), &QItemSelectionModel::currentChanged, tree,
            [tree](const QModelIndex &current) {
                if (current.column() > TransferPlanModel::Song)
                    tree->selectionModel()->setCurrentIndex(
                        current.siblingAtColumn(TransferPlanModel::Song),
                        QItemSelectionModel::NoUpdate);
            });
    expandGroups();
}

/** What needs no look stays folded, unless there is nothing else. */
void TransferPlanDialog::expandGroups()
{
    const int groups = m_model->rowCount();
    for (int row = 0; row < groups; ++row) {
        const QModelIndex group = m_model->index(row, TransferPlanModel::Song);
        ui->planTreeView->setExpanded(group, groups == 1 || !m_model->isUneventful(group));
    }
}

void TransferPlanDialog::showIntro(Purpose purpose)
{
    QStringList sentences;
    if (purpose == Purpose::Request) {
        sentences.append(tr("Ecco che cosa succederebbe alle song scelte."));
    } else {
        if (wouldLoseSongs(m_plan))
            sentences.append(tr("Alcune song hanno lo stesso nome: nella memoria ne resterebbe una "
                                "sola."));
        if (m_plan.count(State::Renamed) > 0)
            sentences.append(tr("Alcune song sono già nella memoria con un nome accorciato: ci "
                                "sarebbero due volte."));
        if (!m_plan.fits())
            sentences.append(tr("Lo spazio libero nella memoria non basta per tutte le song."));
        if (!m_plan.canBeIndexed())
            sentences.append(tr("Il player non può trovare così tante song."));
    }
    sentences.append(tr("Non è stato ancora copiato niente."));
    ui->introLabel->setText(sentences.join(QLatin1Char(' ')));
}

/** Songs that are not shown are never removed. */
void TransferPlanDialog::showOthers(bool show)
{
    for (TransferPlan::Item &item : m_plan.items) {
        if (item.state == State::Remove)
            item.remedy = Remedy::Skip;
    }
    m_model->showOthers(show);
    expandGroups();
    showSelection();
}

void TransferPlanDialog::showSelection()
{
    ui->remedyPanel->showSongs(
        m_model->songs(ui->planTreeView->selectionModel()->selectedRows(TransferPlanModel::Song)));
    refresh();
}

void TransferPlanDialog::refresh()
{
    m_isGone = !m_plan.isMemoryThere();
    const qint64 needed = m_plan.bytesNeeded();
    ui->roomBar->setVisible(m_plan.freeBytes >= 0 && m_plan.totalBytes > 0);
    ui->roomBar->setRoom(m_plan.totalBytes, m_plan.freeBytes, needed);
    if (m_plan.freeBytes < 0 || m_plan.totalBytes < 0)
        ui->roomLabel->setText(
            tr("Servono %1. Lo spazio libero non è noto.").arg(sizeText(needed)));
    else
        ui->roomLabel->setText(tr("Occupati: %1 di %2. Servono: %3. Liberi: %4.")
                                   .arg(sizeText(m_plan.totalBytes - m_plan.freeBytes),
                                        sizeText(m_plan.totalBytes), sizeText(needed),
                                        sizeText(m_plan.freeBytes)));
    const auto replaced = static_cast<int>(std::count_if(
        m_plan.items.cbegin(), m_plan.items.cend(), [](const TransferPlan::Item &item) {
            return item.remedy == Remedy::Replace && item.isThere;
        }));
    const int added = m_plan.count(Remedy::Copy) + m_plan.count(Remedy::KeepBoth) +
                      m_plan.count(Remedy::SubFolder) + m_plan.count(Remedy::Replace) - replaced;
    const int removed = m_plan.count(Remedy::Remove);
    ui->countsLabel->setText(tr("Song aggiunte: %1. Sostituite: %2. Rimosse: %3. Song nella "
                                "memoria dopo il trasferimento: %4.")
                                 .arg(added)
                                 .arg(replaced)
                                 .arg(removed)
                                 .arg(m_plan.songsAfter()));
    const QString problem = whyNot();
    QFont stateFont = font();
    stateFont.setBold(!problem.isEmpty());
    ui->stateLabel->setFont(stateFont);
    ui->carryOutPushButton->setEnabled(problem.isEmpty());
    ui->asAlwaysPushButton->setEnabled(!m_isGone);
    QStringList state{problem};
    if (problem.isEmpty()) {
        state = {skippedText()};
        if (added + replaced + removed == 0)
            state.prepend(tr("Niente da copiare né da rimuovere: «Esegui» aggiorna soltanto "
                             "il database della memoria."));
    }
    ui->stateLabel->setText(state.join(QLatin1Char(' ')).trimmed());
}

/** A song that would stay behind is told before, not only by its line among hundreds. */
QString TransferPlanDialog::skippedText() const
{
    const auto skipped = std::count_if(
        m_plan.items.cbegin(), m_plan.items.cend(), [](const TransferPlan::Item &item) {
            return item.remedy == Remedy::Skip && item.state != State::Same &&
                   item.state != State::Renamed && item.state != State::Remove;
        });
    return skipped == 0 ? QString() : tr("Song scelte che non vengono copiate: %1").arg(skipped);
}

/** Why the plan cannot be carried out as it is; empty when it can. */
QString TransferPlanDialog::whyNot() const
{
    if (m_isGone)
        return WriteProblem::sentence(WriteProblem::Gone);
    const QString nameProblem = ui->remedyPanel->nameProblem();
    if (!nameProblem.isEmpty())
        return tr("La song non può avere questo nome: %1").arg(nameProblem);
    if (!m_plan.fits())
        return tr("Lo spazio libero non basta: mancano %1. Decidi quali song saltare.")
            .arg(sizeText(m_plan.bytesNeeded() - m_plan.freeBytes));
    if (!m_plan.canBeIndexed())
        return tr("Troppe song per il player: %1, il massimo è %2. Decidi quali song saltare.")
            .arg(m_plan.songsAfter())
            .arg(SongInfoIndex::maxSongs);
    return {};
}

void TransferPlanDialog::carryOut()
{
    refresh(); // the memory may be gone
    if (!whyNot().isEmpty() || (m_plan.count(Remedy::Remove) > 0 && !confirmRemoval()))
        return;
    finish(TransferUser::Review::CarryOut);
}

bool TransferPlanDialog::confirmRemoval()
{
    QStringList names;
    for (const TransferPlan::Item &item : std::as_const(m_plan.items)) {
        if (item.remedy == Remedy::Remove)
            names.append(QDir::toNativeSeparators(item.path.mid(m_plan.root.size())));
    }
    const QStringList shown = names.size() > namesInQuestion
                                  ? names.mid(0, namesInQuestion) + QStringList(QStringLiteral("…"))
                                  : names;
    QMessageBox box(QMessageBox::Question, windowTitle(),
                    tr("Song da rimuovere dalla memoria: %1\nVengono cancellate per sempre, con le "
                       "loro immagini karaoke. Rimuoverle?")
                            .arg(names.size()) +
                        QLatin1String("\n\n") + shown.join(QLatin1Char('\n')),
                    QMessageBox::Yes | QMessageBox::No, this);
    box.setTextFormat(Qt::PlainText); // a file's name could look like markup
    box.setDefaultButton(QMessageBox::No);
    if (names.size() > namesInQuestion)
        setDetails(box, names);
    return box.exec() == QMessageBox::Yes;
}

void TransferPlanDialog::finish(TransferUser::Review review)
{
    m_review = review;
    accept();
}
