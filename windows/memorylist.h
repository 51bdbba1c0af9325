// The list of the memories that are mounted, for a field that takes a memory's folder.
#pragma once

#include "devindex/mountedvolumes.h"

#include <QComboBox>
#include <QFileSystemWatcher>
#include <QTimer>

QT_BEGIN_NAMESPACE
class QLineEdit;
QT_END_NAMESPACE

/**
 * Offers each mounted memory with its free and total space, that used last first; the one that is
 * chosen goes into the path field. The list follows the memories that come and go, and shows the
 * one that the path in the field lies on. It also lets the user browse for a folder. What was
 * chosen in either way is remembered for the next time.
 */
class MemoryList : public QComboBox
{
    Q_OBJECT

public:
    explicit MemoryList(QWidget *parent = nullptr);

    /**
     * From now on this field is filled with the chosen folder; it gets the folder that was chosen
     * last time at once.
     */
    void setPathField(QLineEdit *pathField);

    /** Looks for the mounted memories before the list is shown. */
    void showPopup() override;

public slots:
    /** Lets the user choose any folder. */
    void browseDir();

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

    /** Ignores the mouse wheel, which could choose another memory by accident. */
    void wheelEvent(QWheelEvent *event) override;

private:
    void refresh();
    void watchMountDirectories();
    void showMemoryOfPath();
    void take(const QString &folder);

    const MountedVolumes m_volumes;
    QLineEdit *m_pathField = nullptr;
    QFileSystemWatcher m_watcher;
    QTimer m_settled; ///< runs while a memory is being mounted
};
