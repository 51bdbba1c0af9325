#include "windows/infotabledialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

InfoTableDialog::InfoTableDialog(const QString &title, const QStringList &headings,
                                 const QList<Group> &groups, QWidget *parent)
    : QDialog(parent)
    , m_table(new QTreeWidget)
{
    constexpr QSize firstSize(580, 420);
    constexpr QSize smallestSize(360, 260);
    setWindowTitle(title);
    setModal(true);
    m_table->setAccessibleName(title);
    m_table->setHeaderLabels(headings);
    m_table->setRootIsDecorated(false);
    m_table->setItemsExpandable(false);
    m_table->header()->setSectionsMovable(false);
    m_table->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    fill(groups);

    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    // Qt has no Italian and, after a change of language, no English text for it.
    buttons->button(QDialogButtonBox::Close)->setText(tr("&Chiudi"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(m_table);
    layout->addWidget(buttons);
    setMinimumSize(smallestSize);
    resize(firstSize);
}

void InfoTableDialog::fill(const QList<Group> &groups)
{
    for (const Group &group : groups) {
        QTreeWidgetItem *parent = m_table->invisibleRootItem();
        if (!group.title.isEmpty()) {
            parent = new QTreeWidgetItem(m_table, {group.title});
            parent->setFirstColumnSpanned(true);
            QFont bold = m_table->font();
            bold.setBold(true);
            parent->setFont(0, bold);
        }
        for (const QStringList &row : group.rows)
            new QTreeWidgetItem(parent, row);
    }
    m_table->expandAll();
    if (m_table->topLevelItemCount() > 0)
        m_table->setCurrentItem(m_table->topLevelItem(0));
}
