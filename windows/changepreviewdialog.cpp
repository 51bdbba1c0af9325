#include "windows/changepreviewdialog.h"

#include "windows/plaintooltip.h"

#include "ui_changepreviewdialog.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QHeaderView>

#include <utility>

namespace
{

enum Column { SongOrField, Before, After };

constexpr int firstColumnWidth = 210;
constexpr int beforeColumnWidth = 200;

} // namespace

ChangePreviewDialog::ChangePreviewDialog(ChangePreview preview, bool copyrightAsk, QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::ChangePreviewDialog)
    , m_preview(std::move(preview))
    , m_copyrightAsk(copyrightAsk)
{
    ui->setupUi(this);
    ui->changesTreeWidget->setColumnWidth(SongOrField, firstColumnWidth);
    ui->changesTreeWidget->setColumnWidth(Before, beforeColumnWidth);
    connect(ui->synchronisePushButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->cancelPushButton, &QPushButton::clicked, this, &QDialog::reject);
    showPreview();
}

ChangePreviewDialog::~ChangePreviewDialog() = default;

bool ChangePreviewDialog::confirm(const Database &database, SongTable &model, bool copyrightAsk,
                                  const OpenProgress &openProgress, QWidget *parent)
{
    if (model.goodRowCount() < 1)
        return true;
    std::optional<ChangePreview> preview = ChangePreview::compute(database, model, openProgress);
    if (!preview)
        return false;
    ChangePreviewDialog dialog(*std::move(preview), copyrightAsk, parent);
    return dialog.exec() == QDialog::Accepted;
}

void ChangePreviewDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    showPreview();
}

void ChangePreviewDialog::showPreview()
{
    ui->countsLabel->setText(
        tr("Song che verrebbero modificate: %1 di %2\n"
           "Song non presenti nel database: %3\n"
           "Song non leggibili: %4")
            .arg(m_preview.changed.size())
            .arg(m_preview.songs)
            .arg(m_preview.unknown)
            .arg(m_preview.unreadable) +
        (m_preview.problem.isEmpty() ? QString() : QLatin1Char('\n') + m_preview.problem));
    QList<QTreeWidgetItem *> items;
    for (const ChangePreview::Song &song : m_preview.changed)
        items.append(makeItem(song));
    ui->changesTreeWidget->clear();
    ui->changesTreeWidget->addTopLevelItems(items);
    for (QTreeWidgetItem *const item : std::as_const(items))
        item->setFirstColumnSpanned(true);
    ui->changesTreeWidget->expandAll();
}

QTreeWidgetItem *ChangePreviewDialog::makeItem(const ChangePreview::Song &song) const
{
    const QString shortName = QFileInfo(song.fileName).fileName();
    QString name =
        song.title.isEmpty() ? shortName : song.title + QStringLiteral(" – ") + shortName;
    if (m_copyrightAsk && !song.isSigned)
        name = tr("%1 (verrà chiesta conferma)").arg(name);
    const QString source = ChangePreview::sourceName(song.source);
    if (!source.isEmpty())
        name += QStringLiteral(" [%1]").arg(source);
    auto *const item = new QTreeWidgetItem({name});
    QFont bold = font();
    bold.setBold(true);
    item->setFont(SongOrField, bold);
    item->setToolTip(SongOrField, plainToolTip(QDir::toNativeSeparators(song.fileName)));
    for (const ChangePreview::Change &change : song.changes) {
        const QString after = change.lost.isEmpty()
                                  ? change.after
                                  : tr("%1 (\"?\" al posto di: %2)").arg(change.after, change.lost);
        const QString values[] = {change.before, after};
        auto *const row = new QTreeWidgetItem({ChangePreview::fieldName(change.field)});
        item->addChild(row);
        for (const int column : {Before, After}) {
            const QString &value = values[column - Before];
            row->setText(column, value.isEmpty() ? ChangePreview::emptyValue() : value);
            row->setToolTip(column, plainToolTip(value));
            if (value.isEmpty())
                row->setForeground(column, palette().placeholderText());
        }
    }
    return item;
}
