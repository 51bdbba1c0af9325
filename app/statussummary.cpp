#include "app/statussummary.h"

#include "app/actiongate.h"
#include "windows/songstates.h"
#include "windows/statebuttons.h"
#include "windows/usersongsreltablemodel.h"

#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>

namespace
{

constexpr int pauseMilliseconds = 150;

struct Counts {
    int shown = 0;
    int unshownTexts = 0;
    StateButtons::Numbers byStatus{};
};

Counts count(const QTableView &view, const UserSongsRelTableModel &model)
{
    Counts counts;
    const int statusColumn = model.colIdxStatus();
    const int rows = model.rowCount();
    for (int row = 0; row < rows; ++row) {
        counts.shown += view.isRowHidden(row) ? 0 : 1;
        counts.unshownTexts += model.tagTroubles(row) == TagTroubles() ? 0 : 1;
        const int status = model.index(row, statusColumn).data().toInt();
        ++counts.byStatus[static_cast<size_t>(SongStates::known(status))];
    }
    return counts;
}

} // namespace

StatusSummary::StatusSummary(QStatusBar *bar, const QTableView *view,
                             const UserSongsRelTableModel &model, ActionGate &gate)
    : QObject(bar)
    , m_view(view)
    , m_model(model)
    , m_label(new QLabel(bar))
    , m_states(new StateButtons(bar))
    , m_unreadableButton(new QPushButton(bar))
    , m_tagsButton(new QPushButton(bar))
{
    m_label->setObjectName(QStringLiteral("summaryLabel"));
    m_label->setIndent(8);
    m_unreadableButton->setObjectName(QStringLiteral("unreadablePushButton"));
    m_unreadableButton->hide();
    gate.add(m_unreadableButton);
    bar->addWidget(m_label);
    bar->addWidget(m_states, 1);
    m_tagsButton->setObjectName(QStringLiteral("tagsPushButton"));
    m_tagsButton->hide();
    gate.add(m_tagsButton);
    bar->addPermanentWidget(m_tagsButton);
    bar->addPermanentWidget(m_unreadableButton);
    connect(m_tagsButton, &QPushButton::clicked, this, &StatusSummary::tagsRequested);
    connect(m_unreadableButton, &QPushButton::clicked, this, &StatusSummary::listRequested);

    m_later.setSingleShot(true);
    m_later.setInterval(pauseMilliseconds);
    connect(&m_later, &QTimer::timeout, this, &StatusSummary::refresh);
    connect(&m_model, &QAbstractItemModel::rowsInserted, this, &StatusSummary::refreshLater);
    connect(&m_model, &QAbstractItemModel::rowsRemoved, this, &StatusSummary::refreshLater);
    connect(&m_model, &QAbstractItemModel::dataChanged, this, &StatusSummary::refreshLater);
    connect(&m_model, &QAbstractItemModel::modelReset, this, &StatusSummary::refreshLater);
    refresh();
}

void StatusSummary::setUnreadableFiles(const QList<UnreadableFile> &files)
{
    m_unreadable = files;
    refresh();
}

void StatusSummary::refreshLater()
{
    if (!m_later.isActive())
        m_later.start();
}

void StatusSummary::refresh()
{
    const Counts counts = count(*m_view, m_model);
    const int songs = m_model.rowCount();
    QStringList texts{tr("%n song", nullptr, songs)};
    if (counts.shown < songs)
        texts << tr("mostrate: %1").arg(counts.shown);
    m_label->setText(texts.join(QStringLiteral("   ")));
    m_states->setNumbers(counts.byStatus, {tr("nuove: %1"), tr("sincronizzate: %1"),
                                           tr("modificate: %1"), tr("non sincronizzate: %1")});

    m_unreadableButton->setText(
        tr("%n file non leggibili...", nullptr, static_cast<int>(m_unreadable.size())));
    m_unreadableButton->setVisible(!m_unreadable.isEmpty());
    m_tagsButton->setText(tr("%n tag da preparare...", nullptr, counts.unshownTexts));
    m_tagsButton->setVisible(counts.unshownTexts > 0);
}
