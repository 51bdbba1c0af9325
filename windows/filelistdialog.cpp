#include "windows/filelistdialog.h"

#include "windows/plaintooltip.h"

#include "ui_filelistdialog.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QPushButton>

FileListDialog::FileListDialog(const QString &title, const QString &caption,
                               const QList<Line> &lines, QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::FileListDialog)
{
    ui->setupUi(this);
    setWindowTitle(title);
    ui->captionLabel->setText(caption);
    // Qt has no Italian and, after a change of language, no English text for it.
    ui->buttonBox->button(QDialogButtonBox::Close)->setText(tr("&Chiudi"));
    for (const Line &line : lines) {
        auto *const item =
            new QTreeWidgetItem(ui->filesTreeWidget, {QFileInfo(line.path).fileName(), line.text});
        const QString path = plainToolTip(QDir::toNativeSeparators(line.path));
        for (int column = 0; column < item->columnCount(); ++column)
            item->setToolTip(column, path);
    }
    ui->filesTreeWidget->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ui->filesTreeWidget->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    ui->filesTreeWidget->header()->setStretchLastSection(false);
    // In a narrow window, a long text would leave no room for the names.
    constexpr int nameCharacters = 16;
    ui->filesTreeWidget->header()->setMinimumSectionSize(nameCharacters *
                                                         fontMetrics().averageCharWidth());
}

FileListDialog::~FileListDialog() = default;
