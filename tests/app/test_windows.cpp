// Every window in every language: no text is cut off, mnemonics are unique and lead somewhere,
// every field has a name, the Tab key walks in reading order. With KAVENA_WINDOW_PICTURES set to a
// folder, leaves pictures of each window there, in a light and in a dark palette, and as small as
// the window can get, for people to look at.
#include "app/mainwindow.h"
#include "app/statussummary.h"
#include "library/branding.h"
#include "support/everywindow.h"
#include "support/ownfolders.h"
#include "windows/aboutdialog.h"
#include "windows/backupdialog.h"
#include "windows/changepreviewdialog.h"
#include "windows/dataeditdialog.h"
#include "windows/elidedlabel.h"
#include "windows/filelistdialog.h"
#include "windows/helpdialog.h"
#include "windows/indexdialog.h"
#include "windows/nocopyrightdialog.h"
#include "windows/proceeddialog.h"
#include "windows/progresswindow.h"
#include "windows/runreportbox.h"
#include "windows/songslistdialog.h"
#include "windows/unreadablefilesdialog.h"
#include "windows/usersongsreltablemodel.h"
#include "windows/visibleoutlines.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QTest>
#include <QTextEdit>
#include <QTranslator>

namespace
{

using namespace everywindow;

QPalette darkPalette()
{
    QPalette dark(QColor(53, 53, 53), QColor(42, 42, 42));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
    dark.setColor(QPalette::ToolTipBase, QColor(60, 60, 60));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    dark.setColor(QPalette::Link, QColor(90, 170, 240));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::HighlightedText}) {
        dark.setColor(role, Qt::white);
        dark.setColor(QPalette::Disabled, role, QColor(130, 130, 130));
    }
    dark.setColor(QPalette::PlaceholderText, QColor(160, 160, 160));
    return dark;
}

template <typename Widget>
QList<Widget *> shown(const QWidget &window)
{
    QList<Widget *> found;
    const QList<Widget *> all = window.findChildren<Widget *>();
    for (Widget *widget : all) {
        if (widget->isVisible() && widget->window() == &window)
            found << widget;
    }
    return found;
}

/** How a widget is called in a message. */
QString described(const QWidget *widget, const QString &text)
{
    return QStringLiteral("%1 \"%2\" at %3 x %4")
        .arg(widget->objectName(), text)
        .arg(widget->width())
        .arg(widget->height());
}

/** The texts that do not fit into the widgets that show them. */
QStringList cutTexts(const QWidget &window)
{
    QStringList cut;
    for (const QLabel *label : shown<QLabel>(window)) {
        if (label->text().isEmpty() || dynamic_cast<const ElidedLabel *>(label) != nullptr)
            continue;
        const QSize needed =
            label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
        if (needed.width() > label->width() || needed.height() > label->height())
            cut << described(label, label->text());
    }
    for (const QAbstractButton *button : shown<QAbstractButton>(window)) {
        const QSize needed = button->sizeHint();
        if (!button->text().isEmpty() &&
            (needed.width() > button->width() || needed.height() > button->height()))
            cut << described(button, button->text());
    }
    for (const QComboBox *combo : shown<QComboBox>(window)) {
        const QSize needed = combo->minimumSizeHint();
        if (needed.width() > combo->width() || needed.height() > combo->height())
            cut << described(combo, combo->currentText());
    }
    for (const QGroupBox *box : shown<QGroupBox>(window)) {
        if (box->minimumSizeHint().width() > box->width())
            cut << described(box, box->title());
    }
    return cut;
}

QString mnemonicOf(const QString &text)
{
    return QKeySequence::mnemonic(text).toString();
}

class Mnemonics
{
public:
    void add(const QString &text)
    {
        const QString mnemonic = mnemonicOf(text);
        if (mnemonic.isEmpty())
            return;
        if (m_owners.contains(mnemonic))
            clashes << QStringLiteral("%1: \"%2\" and \"%3\"")
                           .arg(mnemonic, m_owners.value(mnemonic), text);
        m_owners.insert(mnemonic, text);
    }

    QStringList clashes;

private:
    QHash<QString, QString> m_owners;
};

/** Each menu is a world of its own; so are the window's widgets together with its menu bar. */
QStringList mnemonicClashes(const QWidget &window)
{
    Mnemonics ofWindow;
    for (const QMenuBar *bar : shown<QMenuBar>(window)) {
        for (const QAction *action : bar->actions())
            ofWindow.add(action->text());
    }
    for (const QLabel *label : shown<QLabel>(window)) {
        if (label->buddy() != nullptr)
            ofWindow.add(label->text());
    }
    for (const QAbstractButton *button : shown<QAbstractButton>(window))
        ofWindow.add(button->text());
    QStringList clashes = ofWindow.clashes;
    const QList<QMenu *> menus = window.findChildren<QMenu *>();
    for (const QMenu *menu : menus) {
        Mnemonics ofMenu;
        for (const QAction *action : menu->actions()) {
            if (action->isVisible())
                ofMenu.add(action->text());
        }
        clashes << ofMenu.clashes;
    }
    return clashes;
}

/** The labels that show a mnemonic which leads nowhere. */
QStringList idleMnemonics(const QWidget &window)
{
    QStringList idle;
    for (const QLabel *label : shown<QLabel>(window)) {
        if (label->textFormat() != Qt::RichText && label->buddy() == nullptr &&
            !mnemonicOf(label->text()).isEmpty())
            idle << label->text();
    }
    return idle;
}

/** The fields that a screen reader could not name. */
QStringList namelessFields(const QWidget &window)
{
    QSet<const QWidget *> named;
    for (const QLabel *label : shown<QLabel>(window))
        named << label->buddy();
    QStringList nameless;
    for (const QWidget *widget : shown<QWidget>(window)) {
        const bool isField = qobject_cast<const QLineEdit *>(widget) != nullptr ||
                             qobject_cast<const QComboBox *>(widget) != nullptr ||
                             qobject_cast<const QTextEdit *>(widget) != nullptr ||
                             qobject_cast<const QPlainTextEdit *>(widget) != nullptr ||
                             qobject_cast<const QAbstractSpinBox *>(widget) != nullptr;
        const QWidget *const parent = widget->parentWidget();
        const bool isPart = qobject_cast<const QComboBox *>(parent) != nullptr ||
                            qobject_cast<const QAbstractSpinBox *>(parent) != nullptr;
        if (isField && !isPart && !named.contains(widget) && widget->accessibleName().isEmpty())
            nameless << widget->objectName();
    }
    return nameless;
}

/**
 * The steps of the Tab key that lead to the left or upwards on its way round the window. The one
 * from the last widget to the first is always among them.
 */
QStringList backwardTabSteps(QWidget &window)
{
    const auto place = [&window](const QWidget *widget) {
        return QRect(widget->mapTo(&window, QPoint()), widget->size());
    };
    QStringList steps;
    QSet<const QWidget *> left;
    const QWidget *from = window.focusWidget();
    while (from != nullptr && !left.contains(from)) {
        left << from;
        QTest::keyClick(&window, Qt::Key_Tab);
        const QWidget *const to = window.focusWidget();
        const QRect before = place(from);
        const QRect after = place(to);
        const bool sameLine =
            after.top() <= before.center().y() && before.top() <= after.center().y();
        if (sameLine ? after.left() <= before.left() : after.top() < before.top())
            steps << QStringLiteral("%1 -> %2").arg(from->objectName(), to->objectName());
        from = to;
    }
    return steps;
}

void makeSmallest(QWidget *window)
{
    window->resize(window->minimumSizeHint().expandedTo(window->minimumSize()));
    QTest::qWait(0);
}

} // namespace

class TestWindows : public QObject
{
    Q_OBJECT

private slots:
    void init() { OwnSettings::clear(); }

    void everyWindow_data();
    void everyWindow();
    void cutTextIsNoticed();
    void clashAndIdleMnemonicAreNoticed();
    void namelessFieldIsNoticed();
    void stepBackIsNoticed();

private:
    static void takePictures(const Case &window, const QString &language);
};

void TestWindows::everyWindow_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("window");
    // Without a translation, the texts are the Italian ones of the sources.
    QStringList texts{languages::italian};
    for (const QString &language : branding().languages)
        texts << QFileInfo(branding().translation(language)).fileName();
    for (const QString &language : std::as_const(texts)) {
        for (int i = 0; i < windows().size(); ++i)
            QTest::addRow("%s %s", windows()[i].name, qPrintable(language)) << language << i;
    }
}

void TestWindows::everyWindow()
{
    QFETCH(QString, language);
    QFETCH(int, window);
    QTranslator translator;
    if (language != languages::italian) {
        QVERIFY(translator.load(QStringLiteral(":/trans/") + language));
        QCoreApplication::installTranslator(&translator);
    }
    OwnSettings::set(settings::language, language.right(2));

    const Shown shown(windows()[window]);
    QCOMPARE(cutTexts(*shown.window).join(QLatin1Char('\n')), QString());
    QCOMPARE(mnemonicClashes(*shown.window).join(QLatin1Char('\n')), QString());
    QCOMPARE(idleMnemonics(*shown.window).join(QLatin1Char('\n')), QString());
    QCOMPARE(namelessFields(*shown.window).join(QLatin1Char('\n')), QString());

    shown.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(shown.window));
    const QStringList backward = backwardTabSteps(*shown.window);
    QVERIFY2(backward.size() == 1, qPrintable(backward.join(QLatin1Char('\n'))));

    makeSmallest(shown.window);
    QCOMPARE(cutTexts(*shown.window).join(QLatin1Char('\n')), QString());
    takePictures(windows()[window], language);
}

void TestWindows::takePictures(const Case &window, const QString &language)
{
    const QString folder = qEnvironmentVariable("KAVENA_WINDOW_PICTURES");
    if (folder.isEmpty())
        return;
    for (const bool dark : {false, true}) {
        QApplication::setPalette(dark ? darkPalette() : QApplication::style()->standardPalette());
        const Shown shown(window);
        const QString file = QStringLiteral("%1/%2-%3-%4%5.png")
                                 .arg(folder, QString::fromLatin1(window.name), language,
                                      dark ? QStringLiteral("dark") : QStringLiteral("light"));
        QTest::qWait(0); // for what a window puts off until it has its size
        QVERIFY(shown.window->grab().save(file.arg(QString())));
        makeSmallest(shown.window);
        QVERIFY(shown.window->grab().save(file.arg(QStringLiteral("-small"))));
    }
    QApplication::setPalette(QApplication::style()->standardPalette());
}

void TestWindows::cutTextIsNoticed()
{
    QWidget window;
    auto *const label = new QLabel(QStringLiteral("a text of some length"), &window);
    label->setFixedWidth(label->sizeHint().width() - 1);
    auto *const button = new QPushButton(QStringLiteral("a button's text"), &window);
    button->setFixedWidth(button->sizeHint().width() - 1);
    window.show();
    QCOMPARE(cutTexts(window).size(), 2);
    label->setFixedWidth(label->sizeHint().width());
    button->setFixedWidth(button->sizeHint().width());
    QCOMPARE(cutTexts(window), QStringList());
}

void TestWindows::clashAndIdleMnemonicAreNoticed()
{
    QWidget window;
    const QLabel label(QStringLiteral("&Name:"), &window);
    const QPushButton first(QStringLiteral("&New"), &window);
    const QPushButton second(QStringLiteral("N&ot new"), &window);
    const QPushButton third(QStringLiteral("&Old"), &window);
    window.show();
    QCOMPARE(idleMnemonics(window), QStringList(label.text()));
    QCOMPARE(mnemonicClashes(window).size(), 1); // an idle mnemonic is in nobody's way
}

void TestWindows::namelessFieldIsNoticed()
{
    QWidget window;
    QLineEdit field(&window);
    field.setObjectName(QStringLiteral("field"));
    window.show();
    QCOMPARE(namelessFields(window), QStringList(field.objectName()));
    field.setAccessibleName(QStringLiteral("Name"));
    QCOMPARE(namelessFields(window), QStringList());
}

void TestWindows::stepBackIsNoticed()
{
    QWidget window;
    const QPushButton first(&window);
    QPushButton second(&window);
    QPushButton third(&window);
    second.move(100, 0);
    third.move(200, 0);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(backwardTabSteps(window).size(), 1);
    second.move(200, 0);
    third.move(100, 0);
    QCOMPARE(backwardTabSteps(window).size(), 2);
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    QApplication::setStyle(new VisibleOutlines); // as the program does
    TestWindows test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_windows.moc"
