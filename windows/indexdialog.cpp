#include "windows/indexdialog.h"

#include "devindex/index.h"
#include "devindex/mountedvolumes.h"
#include "storage/diagnostics.h"
#include "storage/memorylock.h"
#include "windows/confirmation.h"
#include "windows/longjob.h"

#include "ui_indexdialog.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QMouseEvent>

namespace
{

const char *const inProgress =
    QT_TRANSLATE_NOOP("IndexDialog", "Ottimizzazione memoria in corso...");
const char *const completed = QT_TRANSLATE_NOOP("IndexDialog", "Operazione completata");

} // namespace

IndexDialog::IndexDialog(QWidget *parent)
    : QDialog(parent)
    , ui(new Ui::IndexDialog)
{
    ui->setupUi(this);
    connect(ui->pushButtonBrowse, &QPushButton::clicked, this, &IndexDialog::browseDir);
    ui->comboBoxMemory->setPathField(ui->lineEditPath);
    ui->pushButtonStart->installEventFilter(this);
    ui->checkBoxChkdsk->setChecked(false);
    ui->checkBoxChkdsk->setEnabled(false);
}

IndexDialog::~IndexDialog() = default;

bool IndexDialog::eventFilter(QObject *watched, QEvent *event)
{
    // The second press of a double click comes as an event of its own kind.
    const bool isPress =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (watched != ui->pushButtonStart || !isPress)
        return QDialog::eventFilter(watched, event);
    // A filter sees the presses on a disabled button too.
    if (ui->pushButtonStart->isEnabled())
        start(static_cast<QMouseEvent *>(event)->modifiers() != Qt::ShiftModifier);
    return true;
}

void IndexDialog::reject()
{
    if (!m_running)
        QDialog::reject();
}

void IndexDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    const QList<ReportLine> report = m_report;
    m_report.clear();
    ui->plainTextReport->clear();
    for (const ReportLine &line : report)
        appendToReport(line);
}

/** Presses by the keyboard: mouse presses do not reach the button. */
void IndexDialog::on_pushButtonStart_clicked()
{
    start(QGuiApplication::keyboardModifiers() != Qt::ShiftModifier);
}

void IndexDialog::on_pushButtonClose_clicked()
{
    close();
}

void IndexDialog::on_radioButtonUpdate_clicked() {}

void IndexDialog::on_radioButtonRebuild_clicked() {}

void IndexDialog::browseDir()
{
    ui->comboBoxMemory->browseDir();
}

void IndexDialog::updateLabelNum(int filesFound)
{
    ui->labelFileFound->setText(QString::number(filesFound));
    m_keepAlive.processEvents();
}

void IndexDialog::initProgress(int maximum)
{
    ui->progressBar->setRange(0, maximum);
}

void IndexDialog::setProgressValue(int value)
{
    ui->progressBar->setValue(value);
    m_keepAlive.processEvents();
}

void IndexDialog::updateLabelCurrPath(const QString &path)
{
    ui->labelCurrPath->setText(path);
}

void IndexDialog::errorFromIndexReceived(const QString &message)
{
    appendToReport({message, nullptr});
    m_indexErrors = true;
}

void IndexDialog::clearIndexErrors()
{
    m_report.clear();
    ui->plainTextReport->clear();
    m_indexErrors = false;
}

void IndexDialog::start(bool useRoot)
{
    QString path = ui->lineEditPath->text();
    if (useRoot)
        path = getRootDrivePath(path);
    const QFileInfo chosen(path);
    if (!chosen.isDir()) {
        QMessageBox::warning(this, tr("Ottimizza memoria"),
                             chosen.exists() ? tr("Il percorso selezionato non è una cartella")
                                             : tr("Il percorso selezionato non esiste"));
        return;
    }
    const bool update = ui->radioButtonUpdate->isChecked();
    const bool rebuild = ui->radioButtonRebuild->isChecked();
    if (path.endsWith(QLatin1Char('/')) || path.endsWith(QLatin1Char('\\')))
        path.chop(1);
    // A program that writes to any folder of a memory may change the index in its root, so the
    // whole memory is locked.
    const QString memory = getRootDrivePath(path);
    MemoryLock lock(memory.isEmpty() ? path : memory);
    if (!lock.take()) {
        clearIndexErrors();
        if (lock.isHeldByOther() || lock.isFolderInTheWay() ||
            lock.problem() != WriteProblem::Unknown)
            QMessageBox::warning(this, tr("Ottimizza memoria"), lock.message());
        else
            tellResult(false);
        return;
    }

    setRunning(true);
    updateLabelNum(0);
    initProgress(0);
    KeepAlive::processEventsNow();
    clearIndexErrors();
    appendToReport({{}, inProgress});
    const bool success = runIndex(path, update, rebuild);
    lock.release(); // whoever reads the result may pull the memory out
    tellResult(success);
    appendToReport({{}, completed});
    setRunning(false);
}

bool IndexDialog::runIndex(const QString &path, bool update, bool rebuild)
{
    logDebug() << "[IndexDialog::start] path:" << path;
    LongJob job(tr("Ottimizza memoria"));
    Index index;
    index.setRenameQuestion(&confirmation::ask);
    connect(&index, &Index::fileFoundChanged, this, &IndexDialog::updateLabelNum);
    connect(&index, &Index::progressMaxSetup, this, &IndexDialog::initProgress);
    connect(&index, &Index::progressValueChanged, this, &IndexDialog::setProgressValue);
    connect(&index, &Index::progressValueChanged, this,
            [this, &job](int value) { job.setProgress(value, ui->progressBar->maximum()); });
    connect(&index, &Index::currentPathChanged, this, &IndexDialog::updateLabelCurrPath);
    connect(&index, &Index::errorFromIndex, this, &IndexDialog::errorFromIndexReceived);
    if (update)
        return index.updateIndex(path);
    if (rebuild)
        return index.createIndex(path);
    return false;
}

void IndexDialog::tellResult(bool success)
{
    if (m_indexErrors) {
        QMessageBox::critical(this, tr("Ottimizza memoria"),
                              tr("Durante l'operazione si sono verificati alcuni errori.\n"
                                 "Consultare il report per maggiori informazioni."));
    } else if (success) {
        QMessageBox::information(this, tr("Ottimizza memoria"),
                                 tr("Operazione completata con successo"));
    } else {
        ui->progressBar->setRange(0, 100);
        ui->progressBar->setValue(0);
        QMessageBox::critical(this, tr("Ottimizza memoria"),
                              tr("Operazione non riuscita.\n"
                                 "Assicurarsi che il disco abbia sufficiente spazio libero e che "
                                 "non sia protetto da scrittura."));
    }
}

void IndexDialog::setRunning(bool running)
{
    m_running = running;
    ui->pushButtonStart->setEnabled(!running);
    ui->pushButtonClose->setEnabled(!running);
    // An open file chooser would stop the run in the middle of its work.
    ui->pushButtonBrowse->setEnabled(!running);
}

void IndexDialog::appendToReport(const ReportLine &line)
{
    m_report.append(line);
    ui->plainTextReport->appendPlainText(line.source != nullptr ? tr(line.source) : line.message);
}

QString IndexDialog::getRootDrivePath(const QString &path) const
{
    return MountedVolumes().getRootDrivePath(path);
}

void IndexDialog::checkDisk(const QString &) {}
