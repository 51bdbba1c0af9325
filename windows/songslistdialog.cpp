#include "windows/songslistdialog.h"

#include "devindex/index.h"
#include "windows/filechooser.h"

#include "ui_songslistdialog.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QMessageBox>
#include <QStandardPaths>

namespace
{

/** Relative to the working directory, unless nothing can be written there. */
QString defaultFileName()
{
    QString name = QStringLiteral("SongsList.csv");
    if (QFileInfo(QDir::currentPath()).isWritable())
        return name;
    return QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
        .absoluteFilePath(name);
}

} // namespace

SongsListDialog::SongsListDialog(QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::SongsListDialog)
{
    ui->setupUi(this);
    ui->comboBoxMemory->setPathField(ui->lineEditPath);
    ui->lineEditFile->setText(defaultFileName());
    connect(ui->pushButtonBrowse, &QPushButton::clicked, this, &SongsListDialog::browseDir);
    connect(ui->pushButtonBrowseFile, &QPushButton::clicked, this, &SongsListDialog::browseFile);
    connect(ui->pushButtonSave, &QPushButton::clicked, this, &SongsListDialog::start);
    connect(ui->pushButtonClose, &QPushButton::clicked, this, &SongsListDialog::close);
}

SongsListDialog::~SongsListDialog() = default;

void SongsListDialog::reject()
{
    if (!m_running)
        QDialog::reject();
}

void SongsListDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        ui->retranslateUi(this);
}

void SongsListDialog::browseDir()
{
    ui->comboBoxMemory->browseDir();
}

void SongsListDialog::browseFile()
{
    const QString path = filechooser::saveFile(this, {tr("Scegli nome del file"),
                                                      QString(),
                                                      {tr("File (*.csv)")},
                                                      QStringLiteral("csv"),
                                                      ui->lineEditFile->text()})
                             .path;
    if (!path.isEmpty())
        ui->lineEditFile->setText(path);
}

void SongsListDialog::start()
{
    if (!pathsExist())
        return;
    setRunning(true);
    tellResult(saveList());
    setRunning(false);
}

void SongsListDialog::initProgress(int maximum)
{
    // A range of 0 to 0 would mean "busy".
    ui->progressBar->setRange(0, qMax(1, maximum));
    ui->progressBar->setValue(0);
}

void SongsListDialog::setProgressValue(int value)
{
    ui->progressBar->setValue(value);
    m_keepAlive.processEvents();
}

bool SongsListDialog::pathsExist()
{
    const QString title = tr("Salva lista song");
    if (!QFileInfo(ui->lineEditPath->text()).isDir()) {
        QMessageBox::warning(this, title, tr("Il percorso selezionato non esiste"));
        return false;
    }
    if (!QFileInfo(QFileInfo(ui->lineEditFile->text()).absolutePath()).isDir()) {
        QMessageBox::warning(this, title, tr("Il percorso di destinazione non esiste"));
        return false;
    }
    return true;
}

int SongsListDialog::saveList()
{
    Index index;
    connect(&index, &Index::progressMaxSetup, this, &SongsListDialog::initProgress);
    connect(&index, &Index::progressValueChanged, this, &SongsListDialog::setProgressValue);
    const auto mode = static_cast<Index::SORT_MODE>(ui->comboBoxSort->currentIndex());
    return index.saveSongsList(ui->lineEditPath->text(), ui->lineEditFile->text(), mode);
}

void SongsListDialog::tellResult(int result)
{
    const QString title = tr("Salva lista song");
    if (result == 1) {
        QMessageBox::information(this, title, tr("Operazione completata"));
    } else if (result == -1) {
        QMessageBox::warning(this, title,
                             tr("Impossibile proseguire, la memoria non è preparata per Kavena"));
    } else {
        QMessageBox::warning(this, title, tr("Errore durante la creazione del file"));
    }
}

void SongsListDialog::setRunning(bool running)
{
    m_running = running;
    QWidget *const inputs[] = {ui->pushButtonSave, ui->pushButtonClose, ui->pushButtonBrowse,
                               ui->comboBoxMemory, ui->lineEditPath,    ui->pushButtonBrowseFile,
                               ui->lineEditFile,   ui->comboBoxSort};
    for (QWidget *const input : inputs)
        input->setEnabled(!running);
}
