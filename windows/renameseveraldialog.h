// The window in which files get names made of their songs' data.
#pragma once

#include "devindex/severalrenames.h"
#include "library/historyrecorder.h"

#include <QDialog>
#include <QList>
#include <QScopedPointer>
#include <QString>
#include <QTimer>

QT_BEGIN_NAMESPACE
namespace Ui
{
class RenameSeveralDialog;
}
QT_END_NAMESPACE

/** Shows each file with its present and its new name; renames when the user presses the button. */
class RenameSeveralDialog : public QDialog
{
    Q_OBJECT

public:
    /** The songs as they are now, each with its path. */
    RenameSeveralDialog(const QList<SongInfo> &songs, OpenHistory openHistory,
                        QWidget *parent = nullptr);
    ~RenameSeveralDialog() override;

signals:
    /** A file has its new name. */
    void renamed(const QString &path, const QString &newPath);

private:
    void makeRows();
    void preview();
    void showSummary();
    QList<SeveralRename> chosen() const;
    void apply();

    const QScopedPointer<Ui::RenameSeveralDialog> ui;
    const OpenHistory m_openHistory;
    SeveralRenames m_renames;
    QTimer m_later; ///< until all keys that wait are taken
};
