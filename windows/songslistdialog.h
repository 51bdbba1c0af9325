// Saves the list of a memory's songs as a text file.
#pragma once

#include "library/keepalive.h"

#include <QDialog>
#include <QScopedPointer>
#include <QString>

QT_BEGIN_NAMESPACE
namespace Ui
{
class SongsListDialog;
}
QT_END_NAMESPACE

/**
 * The user chooses a memory that has an index, the file to write and the order of the songs. The
 * dialog does not close while it works.
 */
class SongsListDialog : public QDialog
{
    Q_OBJECT

public:
    explicit SongsListDialog(QWidget *parent = nullptr);
    ~SongsListDialog() override;

    /** Closes the dialog, unless it is at work. */
    void reject() override;

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void browseDir();
    void browseFile();
    void start();
    void initProgress(int maximum);
    void setProgressValue(int value);

private:
    bool pathsExist();
    int saveList();
    void tellResult(int result);
    void setRunning(bool running);

    const QScopedPointer<Ui::SongsListDialog> ui;
    bool m_running = false;
    KeepAlive m_keepAlive;
};
