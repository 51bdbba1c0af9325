// The keys of the menus: what the window shows is what the entries have.
#include "app/mainwindow.h"
#include "support/ownfolders.h"
#include "windows/shortcutsdialog.h"

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

namespace
{

/** The keys and texts of the table's rows below the headings. */
QStringList rowsOf(const ShortcutsDialog &dialog)
{
    QStringList rows;
    const auto *const table = dialog.findChild<QTreeWidget *>();
    for (int group = 0; group < table->topLevelItemCount(); ++group) {
        const QTreeWidgetItem *const heading = table->topLevelItem(group);
        for (int row = 0; row < heading->childCount(); ++row)
            rows.append(heading->child(row)->text(0) + QStringLiteral(": ") +
                        heading->child(row)->text(1));
    }
    return rows;
}

} // namespace

class TestShortcutsDialog : public QObject
{
    Q_OBJECT

private slots:
    void init() { OwnSettings::clear(); }

    void everyKeyOfTheMenusIsThere();
    void changedKeysAreShown();
    void hiddenEntriesAreNot();
    void menuOpensIt();
};

void TestShortcutsDialog::everyKeyOfTheMenusIsThere()
{
    const MainWindow window;
    const ShortcutsDialog dialog(*window.menuBar());
    const QStringList rows = rowsOf(dialog);
    int withKeys = 0;
    const QList<QAction *> actions = window.findChildren<QAction *>();
    for (const QAction *const action : actions) {
        const QString keys = action->shortcut().toString(QKeySequence::NativeText);
        if (keys.isEmpty() || !action->isVisible())
            continue;
        ++withKeys;
        const bool isThere = std::any_of(rows.cbegin(), rows.cend(), [&](const QString &row) {
            return row.startsWith(keys + QLatin1Char(',')) ||
                   row.startsWith(keys + QLatin1Char(':'));
        });
        QVERIFY2(isThere, qPrintable(action->objectName()));
    }
    QVERIFY(withKeys > 10);
    QVERIFY(rows.contains(QKeySequence(Qt::Key_Space).toString(QKeySequence::NativeText) +
                          QStringLiteral(": Ascolta la song scelta")));
    constexpr int outsideMenus = 3;
    QCOMPARE(rows.size(), withKeys + outsideMenus);
    QVERIFY(rows.contains(QStringLiteral("F1: Aiuto Kavena PC")));
}

void TestShortcutsDialog::changedKeysAreShown()
{
    QMenuBar menus;
    QMenu *const menu = menus.addMenu(QStringLiteral("&Fish && chips"));
    QAction *const entry = menu->addAction(QStringLiteral("Sa&ve..."));
    menu->addMenu(QStringLiteral("More"))
        ->addAction(QStringLiteral("In&ner"))
        ->setShortcut(Qt::Key_F7);
    menu->addAction(QStringLiteral("Without keys"));
    entry->setShortcuts({Qt::Key_F6, Qt::Key_F6, Qt::Key_F9});
    const ShortcutsDialog first(menus);
    QCOMPARE(rowsOf(first).first(2),
             (QStringList{QStringLiteral("F6, F9: Save"), QStringLiteral("F7: Inner")}));
    QCOMPARE(first.findChild<QTreeWidget *>()->topLevelItem(0)->text(0),
             QStringLiteral("Fish & chips"));
    entry->setShortcut(Qt::Key_F8);
    const ShortcutsDialog second(menus);
    QCOMPARE(rowsOf(second).first(), QStringLiteral("F8: Save"));
}

void TestShortcutsDialog::hiddenEntriesAreNot()
{
    QMenuBar menus;
    QAction *const entry =
        menus.addMenu(QStringLiteral("Menu"))->addAction(QStringLiteral("Entry"));
    entry->setShortcut(Qt::Key_F6);
    entry->setVisible(false);
    const ShortcutsDialog dialog(menus);
    QVERIFY(rowsOf(dialog).filter(QStringLiteral("Entry")).isEmpty());
    const auto *const table = dialog.findChild<QTreeWidget *>();
    QVERIFY(table->findItems(QStringLiteral("Menu"), Qt::MatchExactly).isEmpty());
}

void TestShortcutsDialog::menuOpensIt()
{
    MainWindow window;
    QString opened;
    QTimer::singleShot(0, &window, [&] {
        QWidget *const modal = QApplication::activeModalWidget();
        if (modal == nullptr)
            return;
        opened = modal->windowTitle();
        modal->close();
    });
    window.findChild<QAction *>(QStringLiteral("actionShortcuts"))->trigger();
    QCOMPARE(opened, QStringLiteral("Tasti di scelta rapida"));
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    TestShortcutsDialog test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_shortcutsdialog.moc"
