// The list of mounted memories beside a path field, as both memory windows have it.
#include "library/settings.h"
#include "support/brackettranslator.h"
#include "support/mountedcard.h"
#include "support/ownfolders.h"
#include "support/userdriver.h"
#include "windows/indexdialog.h"
#include "windows/memorylist.h"
#include "windows/plaintooltip.h"
#include "windows/songslistdialog.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QStorageInfo>
#include <QTest>
#include <QWheelEvent>

#include <memory>

class TestMemoryList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void bothWindowsOfferTheMemories_data();
    void bothWindowsOfferTheMemories();
    void choosingFillsThePathField_data();
    void choosingFillsThePathField();
    void keyboardChoosesToo();
    void wheelChoosesNothing();
    void runningWindowTakesAChoiceForTheNextRun();

    void textTellsNameFreeAndTotalSpace();
    void showsTheMemoryThatThePathLiesOn_data();
    void showsTheMemoryThatThePathLiesOn();
    void memoryUsedLastIsFirst();
    void noMemoryIsSaid();
    void followsMemoriesThatComeAndGo();
    void followsAMountDirectoryThatIsMadeLater();
    void popupLooksAgain();
    void openPopupIsNotChangedUnderTheHand();
    void followsTheLanguage();

private:
    QStringList offered() const;
    void add(const QString &name) const
    {
        QVERIFY(QDir().mkpath(m_card->mountDirectory() + QLatin1Char('/') + name));
    }

    std::unique_ptr<MountedCard> m_card;
    std::unique_ptr<QWidget> m_window;
    QLineEdit *m_field = nullptr;
    MemoryList *m_list = nullptr;
};

/** Every test starts with a list and its field; two memories, CARD and STICK, are mounted. */
void TestMemoryList::init()
{
    OwnSettings::clear();
    m_card = std::make_unique<MountedCard>();
    add(QStringLiteral("STICK"));
    m_window = std::make_unique<QWidget>();
    m_list = new MemoryList(m_window.get());
    m_field = new QLineEdit(m_window.get());
    m_list->setPathField(m_field);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void TestMemoryList::cleanup()
{
    m_window.reset();
    m_card.reset();
}

QStringList TestMemoryList::offered() const
{
    QStringList paths;
    for (int i = 0; i < m_list->count(); ++i)
        paths.append(
            QDir(m_card->mountDirectory()).relativeFilePath(m_list->itemData(i).toString()));
    return paths;
}

namespace
{

std::unique_ptr<QDialog> makeWindow(const QString &name)
{
    if (name == QLatin1String("IndexDialog"))
        return std::make_unique<IndexDialog>();
    return std::make_unique<SongsListDialog>();
}

void bothWindows()
{
    QTest::addColumn<QString>("window");
    QTest::newRow("optimisation") << QStringLiteral("IndexDialog");
    QTest::newRow("export") << QStringLiteral("SongsListDialog");
}

} // namespace

void TestMemoryList::bothWindowsOfferTheMemories_data()
{
    bothWindows();
}

void TestMemoryList::bothWindowsOfferTheMemories()
{
    QFETCH(QString, window);
    const auto dialog = makeWindow(window);
    dialog->show();
    const auto *const list = child<MemoryList>(dialog.get(), "comboBoxMemory");
    QCOMPARE(list->count(), 2);
    QVERIFY(list->itemText(0).startsWith(QStringLiteral("CARD")));
    QVERIFY(list->itemText(1).startsWith(QStringLiteral("STICK")));
    QCOMPARE(list->currentIndex(), -1);
    QCOMPARE(child<QLineEdit>(dialog.get(), "lineEditPath")->text(), QString());
}

void TestMemoryList::choosingFillsThePathField_data()
{
    bothWindows();
}

void TestMemoryList::choosingFillsThePathField()
{
    QFETCH(QString, window);
    const auto dialog = makeWindow(window);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    auto *const list = child<MemoryList>(dialog.get(), "comboBoxMemory");
    QTest::mouseClick(list, Qt::LeftButton);
    QTRY_VERIFY(list->view()->isVisible());
    QAbstractItemView *const view = list->view();
    // A combo box takes the press that opened it for a choice, unless some time lies between.
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                      view->visualRect(view->model()->index(0, 0)).center());
    QCOMPARE(child<QLineEdit>(dialog.get(), "lineEditPath")->text(), m_card->root());
    QCOMPARE(list->currentIndex(), 0);
    QCOMPARE(OwnSettings::value(settings::mediaRoot).toString(), m_card->root());

    // The next window begins with it.
    const auto next = makeWindow(window);
    next->show();
    QCOMPARE(child<QLineEdit>(next.get(), "lineEditPath")->text(), m_card->root());
    QCOMPARE(child<MemoryList>(next.get(), "comboBoxMemory")->currentIndex(), 0);
}

void TestMemoryList::keyboardChoosesToo()
{
    m_list->setFocus();
    QTest::keyClick(m_list, Qt::Key_Down);
    QCOMPARE(m_field->text(), m_card->root());
    QTest::keyClick(m_list, Qt::Key_Down);
    QCOMPARE(m_field->text(), m_card->mountDirectory() + QStringLiteral("/STICK"));
}

void TestMemoryList::wheelChoosesNothing()
{
    m_list->setFocus();
    const QPointF middle = m_list->rect().center();
    QWheelEvent wheel(middle, m_list->mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(m_list, &wheel);
    QCOMPARE(m_list->currentIndex(), -1);
    QCOMPARE(m_field->text(), QString());
}

void TestMemoryList::runningWindowTakesAChoiceForTheNextRun()
{
    m_card->writeOnCard(QStringLiteral("a.mid"), MountedCard::midi("A"));
    IndexDialog dialog;
    dialog.show();
    child<QLineEdit>(&dialog, "lineEditPath")->setText(m_card->root());
    bool enabledAtTheEnd = false;
    UserDriver user;
    user.add([&](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr)
            return false;
        enabledAtTheEnd = child<MemoryList>(&dialog, "comboBoxMemory")->isEnabled();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        return true;
    });
    QTest::mouseClick(child<QPushButton>(&dialog, "pushButtonStart"), Qt::LeftButton);
    QVERIFY(enabledAtTheEnd); // the run lasts until its message is read
    QVERIFY(child<MemoryList>(&dialog, "comboBoxMemory")->isEnabled());
}

void TestMemoryList::textTellsNameFreeAndTotalSpace()
{
    const QStorageInfo storage(m_card->root());
    const QString total =
        QLocale().formattedDataSize(storage.bytesTotal(), 1, QLocale::DataSizeSIFormat);
    const QString text = m_list->itemText(0);
    QVERIFY2(text.startsWith(QStringLiteral("CARD – ")), qPrintable(text));
    QVERIFY2(text.endsWith(QStringLiteral(" liberi di ") + total), qPrintable(text));
    QCOMPARE(m_list->itemData(0, Qt::ToolTipRole).toString(), plainToolTip(m_card->root()));
}

void TestMemoryList::showsTheMemoryThatThePathLiesOn_data()
{
    QTest::addColumn<QString>("path"); // below the mount directory
    QTest::addColumn<int>("index");
    QTest::newRow("memory") << "/STICK" << 1;
    QTest::newRow("folder in it") << "/CARD/songs/pop" << 0;
    QTest::newRow("slash at the end") << "/STICK/" << 1;
    QTest::newRow("not mounted") << "/GONE" << -1;
    QTest::newRow("mount directory") << "" << -1;
}

void TestMemoryList::showsTheMemoryThatThePathLiesOn()
{
    QFETCH(QString, path);
    QFETCH(int, index);
    m_list->setCurrentIndex(index == 0 ? 1 : 0);
    m_field->setText(m_card->mountDirectory() + path);
    QCOMPARE(m_list->currentIndex(), index);
    QCOMPARE(m_field->text(), m_card->mountDirectory() + path); // showing is not choosing
    QVERIFY(!OwnSettings::value(settings::mediaRoot).isValid());
}

void TestMemoryList::memoryUsedLastIsFirst()
{
    add(QStringLiteral("ALPHA"));
    m_list->showPopup();
    m_list->hidePopup();
    QCOMPARE(offered().join(QLatin1Char(' ')), QStringLiteral("ALPHA CARD STICK"));
    OwnSettings::set(settings::mediaRoot, m_card->path(QStringLiteral("songs")));
    m_list->showPopup();
    m_list->hidePopup();
    QCOMPARE(offered().join(QLatin1Char(' ')), QStringLiteral("CARD ALPHA STICK"));
}

void TestMemoryList::noMemoryIsSaid()
{
    QCOMPARE(m_list->placeholderText(), QStringLiteral("Scegli una memoria"));
    QVERIFY(QDir(m_card->root()).removeRecursively());
    QVERIFY(QDir(m_card->mountDirectory()).rmdir(QStringLiteral("STICK")));
    QTRY_COMPARE(m_list->count(), 0);
    QCOMPARE(m_list->placeholderText(), QStringLiteral("Nessuna memoria collegata"));
    QCOMPARE(m_list->currentIndex(), -1);
}

void TestMemoryList::followsMemoriesThatComeAndGo()
{
    add(QStringLiteral("NEW"));
    QTRY_COMPARE(offered(), QStringList({QStringLiteral("CARD"), QStringLiteral("NEW"),
                                         QStringLiteral("STICK")}));
    m_field->setText(m_card->mountDirectory() + QStringLiteral("/NEW"));
    QCOMPARE(m_list->currentIndex(), 1);
    QVERIFY(QDir(m_card->mountDirectory()).rmdir(QStringLiteral("NEW")));
    QTRY_COMPARE(offered(), QStringList({QStringLiteral("CARD"), QStringLiteral("STICK")}));
    QCOMPARE(m_list->currentIndex(), -1);
    QVERIFY(m_field->text().endsWith(QStringLiteral("/NEW"))); // the field is the user's
}

void TestMemoryList::followsAMountDirectoryThatIsMadeLater()
{
    const QString later = m_card->mountDirectory() + QStringLiteral("/later");
    qputenv("KAVENA_MOUNT_DIRS", QFile::encodeName(later));
    MemoryList list;
    QLineEdit field;
    list.setPathField(&field);
    list.show();
    QCOMPARE(list.count(), 0);
    QVERIFY(QDir().mkpath(later + QStringLiteral("/CARD")));
    QTRY_COMPARE(list.count(), 1);
    QVERIFY(QDir().mkpath(later + QStringLiteral("/STICK")));
    QTRY_COMPARE(list.count(), 2);
}

void TestMemoryList::popupLooksAgain()
{
    add(QStringLiteral("NEW"));
    QCOMPARE(m_list->count(), 2); // no event has run yet
    m_list->showPopup();
    QCOMPARE(m_list->count(), 3);
    m_list->hidePopup();
}

void TestMemoryList::openPopupIsNotChangedUnderTheHand()
{
    // A closed list shows when the change has been noticed, and that its time is over: the second
    // memory comes only then.
    MemoryList closed(m_window.get());
    QLineEdit field;
    closed.setPathField(&field);
    closed.show();
    m_list->showPopup();
    QVERIFY(m_list->view()->isVisible());
    add(QStringLiteral("NEW"));
    QTRY_COMPARE(closed.count(), 3);
    add(QStringLiteral("NEXT"));
    QTRY_COMPARE(closed.count(), 4);
    QVERIFY(m_list->view()->isVisible());
    QCOMPARE(m_list->count(), 2);
    m_list->hidePopup();
    QTRY_COMPARE(m_list->count(), 4);
}

void TestMemoryList::followsTheLanguage()
{
    QVERIFY(m_list->itemText(0).contains(QStringLiteral(" liberi di ")));
    BracketTranslator brackets;
    QCoreApplication::installTranslator(&brackets);
    QCoreApplication::processEvents();
    QVERIFY2(m_list->itemText(0).startsWith(QStringLiteral("<CARD – ")),
             qPrintable(m_list->itemText(0)));
    QCOMPARE(m_list->placeholderText(), QStringLiteral("<Scegli una memoria>"));
    QCoreApplication::removeTranslator(&brackets);
}

int main(int argc, char **argv)
{
    const OwnSettings ownSettings;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication app(argc, argv);
    TestMemoryList test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_memorylist.moc"
