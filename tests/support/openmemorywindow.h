// The memory window, opened from the main window with a memory in it, for its tests.
#pragma once

#include "support/apptest.h"
#include "support/filledmemory.h"
#include "support/logcapture.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/memorywindow.h"

#include <QApplication>
#include <QLabel>
#include <QTableView>
#include <QTest>

#include <memory>
#include <optional>

namespace openmemorywindow
{

using filledmemory::text;

/** Says yes where that is asked, else that he has read it; keeps what was said. */
class Agreeing : public ModalAnswers
{
public:
    Agreeing()
    {
        add([this](QWidget *window) {
            auto *const box = qobject_cast<QMessageBox *>(window);
            if (box == nullptr)
                return false;
            said.append((box->text() + QLatin1Char('\n') + box->informativeText()).trimmed());
            onQuestion();
            QAbstractButton *const yes = box->button(QMessageBox::Yes);
            QTest::mouseClick(yes != nullptr ? yes : box->button(QMessageBox::Ok), Qt::LeftButton);
            return true;
        });
    }

    QStringList said;
    std::function<void()> onQuestion = [] {}; ///< happens before the answer
};

class MemoryWindowFixture : public AppFixture
{
protected:
    /** Nothing is open yet: a test may change the memory before. */
    void init()
    {
        AppFixture::init();
        m_log.emplace();
        m_card.emplace();
        filledmemory::fill(*m_card);
        OwnSettings::set(settings::mediaRoot, m_card->root());
        m_main = std::make_unique<WindowUnderTest>();
    }
    void cleanup()
    {
        m_main.reset();
        m_card.reset();
        m_log.reset();
        AppFixture::cleanup();
    }

    /** Opens the window by its menu entry and waits until the memory is shown. */
    void open()
    {
        m_main->action("actionMemory")->trigger();
        m_window = windowOnScreen();
        QVERIFY(m_window != nullptr);
        waitUntilIdle();
    }

    static MemoryWindow *windowOnScreen()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *const window : windows) {
            auto *const memory = qobject_cast<MemoryWindow *>(window);
            if (memory != nullptr && memory->isVisible())
                return memory;
        }
        return nullptr;
    }

    void waitUntilIdle() const
    {
        QTest::qWait(1); // the work begins when the events are done
        QTRY_VERIFY(!m_window->job().isRunning());
    }

    template <typename Widget>
    Widget *find(const char *name) const
    {
        return child<Widget>(m_window, name);
    }

    QTableView *table() const { return find<QTableView>("songsTableView"); }
    QString message() const { return find<QLabel>("messageLabel")->text(); }

    void click(const char *button)
    {
        QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton);
        waitUntilIdle();
    }

    void showPage(int page) const { find<QTabWidget>("tabs")->setCurrentIndex(page); }

    /** What stands in the column from top to bottom. */
    QStringList shown(int column) const
    {
        QStringList texts;
        for (int row = 0; row < table()->model()->rowCount(); ++row)
            texts.append(table()->model()->index(row, column).data().toString());
        return texts;
    }

    QStringList shownPaths() const { return shown(9); }

    QString stateOf(const char *path) const
    {
        return shown(8).value(shownPaths().indexOf(text(path)));
    }

    /** Clicks the songs of these paths, all but the first with the control key. */
    void choose(const QStringList &paths) const
    {
        Qt::KeyboardModifiers keys = Qt::NoModifier;
        for (const QString &path : paths) {
            const auto row = static_cast<int>(shownPaths().indexOf(path));
            QVERIFY2(row >= 0, qPrintable(path));
            const QRect place = table()->visualRect(table()->model()->index(row, 0));
            QTest::mouseClick(table()->viewport(), Qt::LeftButton, keys, place.center());
            keys = Qt::ControlModifier;
        }
    }

    bool has(const char *name) const { return QFileInfo::exists(m_card->path(text(name))); }

    /** How often an index was built since the test began, but for the one of the filled memory. */
    qsizetype updates() const
    {
        return LogCapture::lines().filter(text("create path index")).size() - 1;
    }

    std::optional<LogCapture> m_log;
    std::optional<MountedCard> m_card;
    std::unique_ptr<WindowUnderTest> m_main;
    MemoryWindow *m_window = nullptr;
};

} // namespace openmemorywindow
