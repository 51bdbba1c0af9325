// Prepares or repairs a player's memory: updates or rebuilds its index.
#pragma once

#include "library/keepalive.h"

#include <QDialog>
#include <QList>
#include <QScopedPointer>
#include <QString>

QT_BEGIN_NAMESPACE
namespace Ui
{
class IndexDialog;
}
QT_END_NAMESPACE

/**
 * The user chooses a memory and what to do with its index, and reads the report of problems. Any
 * folder inside a memory stands for the whole memory; a press on the start button with the Shift
 * key takes the folder as it is. The dialog does not close while it works.
 */
class IndexDialog : public QDialog
{
    Q_OBJECT

public:
    explicit IndexDialog(QWidget *parent = nullptr);
    ~IndexDialog() override;

    /**
     * Starts the work at a mouse press on the start button; the button itself does not get the
     * press.
     */
    bool eventFilter(QObject *watched, QEvent *event) override;

    /** Closes the dialog, unless it is at work. */
    void reject() override;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_pushButtonStart_clicked();
    void on_pushButtonClose_clicked();
    void on_radioButtonUpdate_clicked();
    void on_radioButtonRebuild_clicked();

    void browseDir();
    void updateLabelNum(int filesFound);
    void initProgress(int maximum);
    void setProgressValue(int value);
    void updateLabelCurrPath(const QString &path);
    void errorFromIndexReceived(const QString &message);
    void clearIndexErrors();

private:
    /**
     * A line of the report: a message of the index, shown unchanged, or a text that is translated.
     */
    struct ReportLine {
        QString message;
        const char *source = nullptr;
    };

    void start(bool useRoot);
    bool runIndex(const QString &path, bool update, bool rebuild);
    void tellResult(bool success);
    void setRunning(bool running);
    void appendToReport(const ReportLine &line);
    QString getRootDrivePath(const QString &path) const;

    /**
     * Does nothing: the check of the memory's file system is switched off. Kept interface: nothing
     * calls it; its name is fixed.
     */
    void checkDisk(const QString &path);

    const QScopedPointer<Ui::IndexDialog> ui;
    QList<ReportLine> m_report;
    bool m_indexErrors = false; ///< the index reported an error during this run
    bool m_running = false;
    KeepAlive m_keepAlive;
};
