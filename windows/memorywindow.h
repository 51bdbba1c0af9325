// The window that shows what is on a memory of the player, and what can be done with it.
#pragma once

#include "windows/backgroundjob.h"
#include "windows/memorycontents.h"

#include <QPointer>
#include <QScopedPointer>
#include <QString>
#include <QWidget>

QT_BEGIN_NAMESPACE
namespace Ui
{
class MemoryWindow;
}
QT_END_NAMESPACE

class MemoryCheckPage;
class MemoryDuplicatesPage;
class MemoryPlaylistsPage;
class MemorySongsPage;

/**
 * Not modal: whatever works on the memory runs as the window's job, and the other windows stay
 * usable meanwhile. The window changes nothing itself: it tells by signals what the user wants. It
 * does not close while its job changes the memory; a job that only reads is stopped.
 */
class MemoryWindow : public QWidget
{
    Q_OBJECT

public:
    explicit MemoryWindow(QWidget *parent = nullptr);
    ~MemoryWindow() override;

    /** The root of the memory that is chosen; empty when none is. */
    QString root() const;

    /** Chooses the memory that holds the folder, or the folder itself. */
    void choose(const QString &folder);

    /** Shows the memory; null when none can be shown. */
    void setContents(const SharedContents &contents);
    const SharedContents &contents() const { return m_contents; }

    /** Shows a sentence below the pages, until the next one. */
    void showMessage(const QString &text);

    /** Marks and lists the songs that have the same bytes as others. */
    void showDuplicates(const QList<memoryduplicates::Group> &groups);

    BackgroundJob &job() { return m_job; }

    /** Starts work that changes nothing: closing the window stops it. */
    void startReading(std::function<void()> work, std::function<void()> done);

    MemorySongsPage &songsPage() { return *m_songs; }
    MemoryDuplicatesPage &duplicatesPage() { return *m_duplicates; }
    MemoryCheckPage &checkPage() { return *m_check; }

signals:
    /** Another memory is to be shown, or this one anew. */
    void readRequested();

    void ejectRequested();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void makePages();
    void connectJob();
    void chooseOnlyMemory();
    void showFacts();
    bool isIndexDamaged() const;
    void showRemedy();
    void showSpace();
    void setBusy(bool busy);
    void enableEject();
    QString indexText() const;

    const QScopedPointer<Ui::MemoryWindow> ui;
    SharedContents m_contents;
    MemorySongsPage *m_songs = nullptr;
    MemoryPlaylistsPage *m_playlists = nullptr;
    MemoryDuplicatesPage *m_duplicates = nullptr;
    MemoryCheckPage *m_check = nullptr;
    BackgroundJob m_job;
    QTimer m_chosen; ///< runs out when a memory was chosen
    bool m_isReading = false;
    QPointer<QWidget> m_focusBefore; ///< what lost the focus when work began
    QPointer<QWidget> m_focusSince;  ///< what got it instead
};
