// F1 in a window: every window leads to a section that the pages have.
#include "support/everywindow.h"
#include "support/ownfolders.h"
#include "windows/contexthelp.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBrowser>

namespace
{

const QStringList &pages()
{
    static const QStringList all{QStringLiteral("quorvane_help_de.html"),
                                 QStringLiteral("quorvane_help_en.html"),
                                 QStringLiteral("help_de.html"), QStringLiteral("help_en.html"),
                                 QStringLiteral("help_it.html")};
    return all;
}

/** The pages that lack the section. */
QStringList pagesWithout(const QString &section)
{
    QStringList without;
    for (const QString &name : pages()) {
        QFile page(QStringLiteral(":/help/") + name);
        const bool isThere = page.open(QIODevice::ReadOnly) &&
                             page.readAll().contains("<a name=\"" + section.toUtf8() + "\"></a>");
        if (!isThere)
            without.append(name);
    }
    return without;
}

HelpDialog *openHelp()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *const window : windows) {
        auto *const help = qobject_cast<HelpDialog *>(window);
        if (help != nullptr && help->isVisible())
            return help;
    }
    return nullptr;
}

/** How far a page of its own is scrolled at the section. */
int placeOf(const QString &section, QSize size)
{
    HelpDialog dialog;
    dialog.resize(size);
    dialog.show();
    dialog.showSection(section);
    return dialog.findChild<QTextBrowser *>()->verticalScrollBar()->value();
}

} // namespace

class TestContextHelp : public QObject
{
    Q_OBJECT

private slots:
    void init() { OwnSettings::clear(); }

    void everySectionIsInEveryPage();
    void everyWindowHasASection_data();
    void everyWindowHasASection();
    void f1OpensTheSection();
    void messageIsAboutWhatItsWindowIsAbout();
    void helpClosesWithItsWindow();
    void otherKeysAndPopupsAreLeftAlone();
};

void TestContextHelp::everySectionIsInEveryPage()
{
    const QStringList sections = ContextHelp::sections();
    QVERIFY(sections.size() >= 15);
    for (const QString &section : sections)
        QVERIFY2(
            pagesWithout(section).isEmpty(),
            qPrintable(section + QLatin1Char(' ') + pagesWithout(section).join(QLatin1Char(' '))));
    QCOMPARE(pagesWithout(QStringLiteral("nowhere")), pages());
}

void TestContextHelp::everyWindowHasASection_data()
{
    QTest::addColumn<int>("number");
    const QList<everywindow::Case> &all = everywindow::windows();
    for (qsizetype i = 0; i < all.size(); ++i)
        QTest::newRow(all[i].name) << static_cast<int>(i);
}

void TestContextHelp::everyWindowHasASection()
{
    QFETCH(int, number);
    const everywindow::Shown shown(everywindow::windows()[number]);
    const QString section = ContextHelp::sectionOf(shown.window);
    const bool hasOwnF1 = qobject_cast<MainWindow *>(shown.window) != nullptr;
    const bool isHelp = qobject_cast<HelpDialog *>(shown.window) != nullptr;
    if (hasOwnF1 || isHelp)
        QCOMPARE(section, QString());
    else
        QVERIFY2(!section.isEmpty() && pagesWithout(section).isEmpty(), qPrintable(section));
    // Only messages and lists that tell of troubles may have no section of their own.
    const bool isList = qobject_cast<FileListDialog *>(shown.window) != nullptr;
    QVERIFY(isList || section != QStringLiteral("trouble"));
}

void TestContextHelp::f1OpensTheSection()
{
    const ContextHelp contextHelp(nullptr);
    BackupDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTest::keyClick(dialog.findChild<QPushButton *>(), Qt::Key_F1);
    const HelpDialog *const help = openHelp();
    QVERIFY(help != nullptr);
    const int place = placeOf(QStringLiteral("backup"), help->size());
    QVERIFY(place > 0);
    QCOMPARE(help->findChild<QTextBrowser *>()->verticalScrollBar()->value(), place);
}

void TestContextHelp::messageIsAboutWhatItsWindowIsAbout()
{
    IndexDialog memory;
    QCOMPARE(ContextHelp::sectionOf(new QMessageBox(&memory)), QStringLiteral("optimise"));
    const QMessageBox alone;
    QCOMPARE(ContextHelp::sectionOf(&alone), QStringLiteral("trouble"));
}

void TestContextHelp::helpClosesWithItsWindow()
{
    const ContextHelp contextHelp(nullptr);
    {
        BackupDialog dialog;
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_F1);
        QVERIFY(openHelp() != nullptr);
        QTest::keyClick(openHelp(), Qt::Key_F1);
        QCOMPARE(openHelp()->parentWidget(), &dialog);
    }
    QVERIFY(openHelp() == nullptr);
}

void TestContextHelp::otherKeysAndPopupsAreLeftAlone()
{
    const ContextHelp contextHelp(nullptr);
    BackupDialog dialog;
    QTest::keyClick(&dialog, Qt::Key_F2);
    QTest::keyClick(&dialog, Qt::Key_F1, Qt::ControlModifier);
    QWidget popup(&dialog, Qt::Popup);
    QTest::keyClick(&popup, Qt::Key_F1);
    QVERIFY(openHelp() == nullptr);
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    TestContextHelp test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_contexthelp.moc"
