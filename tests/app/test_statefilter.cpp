// The numbers in the status bar as buttons that narrow the list to songs in these states.
#include "support/apptest.h"
#include "support/filterdriver.h"
#include "support/shorttext.h"

#include <QLabel>

using namespace filterdriver;

class TestStateFilter : public AppFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void pressedStateIsShownAlone();
    void severalStatesAreShownTogether();
    void textAndStatesBothCount();
    void keysReachAndPressTheButtons();
    void songThatChangesItsStateFollows();
    void hiddenSongIsNoLongerChosen();
    void newSongsAreFilteredToo();

private:
    QToolButton *button(int status) const
    {
        return m_three->window.child<QToolButton>(qPrintable(s("stateToolButton%1").arg(status)));
    }
    QString visibleSongs() const { return visible(m_three->window); }

    std::unique_ptr<ThreeSongs> m_three;
};

/** a.mid is new, b.mid synchronised and c.mid not. */
void TestStateFilter::init()
{
    AppFixture::init();
    m_three = std::make_unique<ThreeSongs>();
    m_three->window.model()->setStatus(1, Database::StatusSynced);
    m_three->window.model()->setStatus(2, Database::StatusNotSynced);
}

void TestStateFilter::cleanup()
{
    m_three.reset();
    AppFixture::cleanup();
}

void TestStateFilter::pressedStateIsShownAlone()
{
    const QStringList expected{s("a.mid"), s("b.mid"), QString(), s("c.mid")};
    for (int status = 0; status < expected.size(); ++status) {
        button(status)->click();
        QCOMPARE(visibleSongs(), expected.at(status));
        button(status)->click();
        QCOMPARE(visibleSongs(), s("a.mid b.mid c.mid"));
    }
}

void TestStateFilter::severalStatesAreShownTogether()
{
    button(Database::StatusNew)->click();
    button(Database::StatusNotSynced)->click();
    QCOMPARE(visibleSongs(), s("a.mid c.mid"));
    QVERIFY(m_three->window.child<QLabel>("summaryLabel")->text().contains(s("mostrate: 2")));
    button(Database::StatusNew)->click();
    QCOMPARE(visibleSongs(), s("c.mid"));
}

void TestStateFilter::textAndStatesBothCount()
{
    type(m_three->window, s("alpha"));
    QCOMPARE(visibleSongs(), s("a.mid c.mid"));
    button(Database::StatusNotSynced)->click();
    QCOMPARE(visibleSongs(), s("c.mid"));
    field(m_three->window)->clear();
    QCOMPARE(visibleSongs(), s("c.mid"));
    type(m_three->window, s("alpha"));
    button(Database::StatusNotSynced)->click();
    QCOMPARE(visibleSongs(), s("a.mid c.mid"));
}

void TestStateFilter::keysReachAndPressTheButtons()
{
    m_three->window.updateButton()->setFocus(); // nothing can be transferred yet
    QTest::keyClick(m_three->window.updateButton(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), button(Database::StatusNew));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QVERIFY(button(Database::StatusSynced)->isChecked());
    QCOMPARE(visibleSongs(), s("b.mid"));
}

void TestStateFilter::songThatChangesItsStateFollows()
{
    button(Database::StatusNotSynced)->click();
    m_three->window.model()->setStatus(0, Database::StatusNotSynced);
    m_three->window.model()->setStatus(2, Database::StatusEdited);
    QTRY_COMPARE(visibleSongs(), s("a.mid"));
}

void TestStateFilter::hiddenSongIsNoLongerChosen()
{
    m_three->window.table()->selectRow(0);
    QVERIFY(m_three->window.action("actionRemoveSong")->isEnabled());
    button(Database::StatusSynced)->click();
    QVERIFY(!m_three->window.action("actionRemoveSong")->isEnabled());
}

void TestStateFilter::newSongsAreFilteredToo()
{
    button(Database::StatusSynced)->click();
    m_three->window.setSelectedFiles({m_three->songs.midi(s("d.mid"), "Delta")});
    m_three->window.importUserLibrary();
    QCOMPARE(visibleSongs(), QString());
    button(Database::StatusSynced)->click();
    QCOMPARE(visibleSongs(), s("d.mid"));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestStateFilter>(argc, argv);
}

#include "test_statefilter.moc"
