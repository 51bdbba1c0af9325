#include "windows/unreadablefilesdialog.h"

#include "windows/plaintooltip.h"

#include "ui_unreadablefilesdialog.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QPushButton>

UnreadableFilesDialog::UnreadableFilesDialog(const QList<UnreadableFile> &files, QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::UnreadableFilesDialog)
{
    ui->setupUi(this);
    // Qt has no Italian and, after a change of language, no English text for it.
    ui->buttonBox->button(QDialogButtonBox::Close)->setText(tr("&Chiudi"));
    for (const UnreadableFile &file : files) {
        auto *const item = new QTreeWidgetItem(
            ui->filesTreeWidget, {QFileInfo(file.path).fileName(), reasonText(file.reason)});
        const QString path = plainToolTip(QDir::toNativeSeparators(file.path));
        for (int column = 0; column < item->columnCount(); ++column)
            item->setToolTip(column, path);
    }
    ui->filesTreeWidget->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ui->filesTreeWidget->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    ui->filesTreeWidget->header()->setStretchLastSection(false);
}

UnreadableFilesDialog::~UnreadableFilesDialog() = default;

QString UnreadableFilesDialog::reasonText(UnreadableFile::Reason reason)
{
    switch (reason) {
    case UnreadableFile::Reason::Missing:
        return tr("Il file non esiste");
    case UnreadableFile::Reason::NoFile:
        return tr("Non è un file normale");
    case UnreadableFile::Reason::Locked:
        return tr("Il file non può essere aperto");
    case UnreadableFile::Reason::Empty:
        return tr("Il file è vuoto");
    case UnreadableFile::Reason::UnknownFormat:
        return tr("Formato non riconosciuto");
    case UnreadableFile::Reason::Damaged:
        break;
    }
    return tr("Il file è danneggiato");
}
