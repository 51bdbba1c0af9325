#include "windows/remedypanel.h"

#include "devindex/plannedname.h"
#include "windows/transferplanmodel.h"

#include "ui_remedypanel.h"

#include <QKeyEvent>

namespace
{

using Remedy = TransferPlan::Remedy;

} // namespace

RemedyPanel::RemedyPanel(QWidget *parent)
    : QWidget(parent)
    , ui(new Ui::RemedyPanel)
{
    ui->setupUi(this);
    connect(ui->remedyComboBox, &QComboBox::activated, this, &RemedyPanel::choose);
    connect(ui->nameLineEdit, &QLineEdit::textEdited, this, &RemedyPanel::takeName);
}

RemedyPanel::~RemedyPanel() = default;

void RemedyPanel::setPlan(TransferPlan &plan)
{
    m_plan = &plan;
    showSongs({});
}

void RemedyPanel::showSongs(const QList<int> &songs)
{
    m_songs = songs;
    m_nameProblem.clear();
    showRemedies();
    showName();
}

void RemedyPanel::showRemedies()
{
    ui->selectedLabel->setText(m_songs.isEmpty()
                                   ? tr("Seleziona nell'elenco le song di cui vuoi decidere.")
                                   : tr("Song selezionate: %1").arg(m_songs.size()));
    ui->remedyComboBox->clear();
    QList<Remedy> offered;
    bool isOne = true;
    for (const int song : std::as_const(m_songs)) {
        const TransferPlan::Item &item = m_plan->items.at(song);
        isOne = isOne && item.remedy == m_plan->items.at(m_songs.first()).remedy;
        const QList<Remedy> remedies = item.remedies();
        for (const Remedy remedy : remedies) {
            if (offered.contains(remedy))
                continue;
            offered.append(remedy);
            ui->remedyComboBox->addItem(TransferPlanModel::remedyText(item.state, remedy),
                                        static_cast<int>(remedy));
        }
    }
    ui->remedyComboBox->setPlaceholderText(m_songs.isEmpty() ? QString()
                                                             : tr("Diverso per ogni song"));
    const auto now = isOne && !m_songs.isEmpty()
                         ? offered.indexOf(m_plan->items.at(m_songs.first()).remedy)
                         : -1;
    ui->remedyComboBox->setCurrentIndex(static_cast<int>(now));
    ui->remedyComboBox->setEnabled(offered.size() > 1);
}

void RemedyPanel::showName()
{
    const bool isNamed =
        m_songs.size() == 1 && m_plan->items.at(m_songs.first()).remedy == Remedy::KeepBoth;
    ui->nameLineEdit->setEnabled(isNamed);
    ui->nameLineEdit->setText(
        isNamed ? m_plan->items.at(m_songs.first()).keepBothTarget.section(QLatin1Char('/'), -1)
                : QString());
}

void RemedyPanel::choose(int row)
{
    m_plan->choose(m_songs, static_cast<Remedy>(ui->remedyComboBox->itemData(row).toInt()));
    m_nameProblem.clear();
    showRemedies(); // not all of them can have it
    showName();
    emit changed();
}

void RemedyPanel::takeName(const QString &name)
{
    m_nameProblem = PlannedName::whyNot(*m_plan, m_songs.first(), name);
    if (m_nameProblem.isEmpty())
        PlannedName::set(*m_plan, m_songs.first(), name);
    emit changed();
}

/** Enter in the name's field is the end of the name, not of the dialog. */
void RemedyPanel::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || !ui->nameLineEdit->hasFocus())
        QWidget::keyPressEvent(event);
}
