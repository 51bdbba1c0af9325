// Every window in every language: no text is cut off, mnemonics are unique and lead somewhere,
// every field has a name. With KAVENA_WINDOW_PICTURES set to a folder, leaves a picture of each
// window there, in a light and in a dark palette, for people to look at.
#include "app/aboutdialog.h"
#include "app/backupdialog.h"
#include "app/helpdialog.h"
#include "app/mainwindow.h"
#include "app/proceeddialog.h"
#include "devindex/indexdialog.h"
#include "devindex/songslistdialog.h"
#include "library/dataeditdialog.h"
#include "library/elidedlabel.h"
#include "library/nocopyrightdialog.h"
#include "library/progresswindow.h"
#include "support/ownfolders.h"

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

#include <functional>
#include <memory>

namespace
{

const QString longPath =
    QStringLiteral("/home/anna/Music/Backing tracks/Neapolitan classics/O sole mio.mid");

std::unique_ptr<QWidget> editDialog()
{
    auto dialog = std::make_unique<DataEditDialog>();
    SongInfo info;
    info.title = QStringLiteral("'O SOLE MIO");
    info.artist = QStringLiteral("CAPUA EDUARDO DI");
    info.genre = QStringLiteral("NEAPOLITAN");
    info.author = QStringLiteral("G. CAPURRO - E. DI CAPUA");
    info.key = QStringLiteral("G");
    info.length = 203;
    info.userBpm = 128;
    info.fileName = longPath;
    info.format = QStringLiteral("MIDI");
    dialog->setArtistsCombo({info.artist});
    dialog->setGenresCombo({info.genre});
    dialog->setKeysCombo({info.key});
    dialog->setOtherInfo(info);
    return dialog;
}

std::unique_ptr<QWidget> importSummary()
{
    auto dialog = std::make_unique<ProceedDialog>();
    dialog->setFilesCount(1234, 1000, 56);
    return dialog;
}

std::unique_ptr<QWidget> question()
{
    auto dialog = std::make_unique<NoCopyrightDialog>();
    dialog->setFilename(longPath);
    return dialog;
}

std::unique_ptr<QWidget> yesNoQuestion()
{
    auto dialog = std::make_unique<NoCopyrightDialog>();
    dialog->setFilename(longPath);
    dialog->setMessage(QCoreApplication::translate("MainWindow", "esiste già, vuoi sostituirlo?"));
    dialog->setYesNoOnly(true);
    return dialog;
}

/** A progress window stays the child of the widget that is handed out. */
class ProgressHolder : public QWidget
{
public:
    ProgressHolder()
        : m_progress(QCoreApplication::translate("MainWindow", "Aggiornamento file"),
                     QCoreApplication::translate("MainWindow", "Aggiorno la libreria..."), 65000,
                     nullptr)
    {
        m_progress.updateProgress(54321);
    }
    QWidget *dialog() { return &m_progress.dialog(); }

private:
    ProgressWindow m_progress;
};

template <typename Window>
std::unique_ptr<QWidget> plain()
{
    return std::make_unique<Window>();
}

struct Case {
    const char *name;
    std::function<std::unique_ptr<QWidget>()> make;
};

const QList<Case> &windows()
{
    static const QList<Case> all{
        {"main", plain<MainWindow>},
        {"about", plain<AboutDialog>},
        {"backup", plain<BackupDialog>},
        {"help", plain<HelpDialog>},
        {"summary", importSummary},
        {"edit", editDialog},
        {"question", question},
        {"question-yes-no", yesNoQuestion},
        {"memory", plain<IndexDialog>},
        {"songslist", plain<SongsListDialog>},
        {"progress", plain<ProgressHolder>},
    };
    return all;
}

/** A window on the screen, for as long as it lives. */
struct Shown {
    explicit Shown(const Case &described)
        : owner(described.make())
    {
        auto *const holder = dynamic_cast<ProgressHolder *>(owner.get());
        window = holder != nullptr ? holder->dialog() : owner.get();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
    }

    std::unique_ptr<QWidget> owner;
    QWidget *window = nullptr;
};

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

private:
    static void takePictures(const Case &window, const QString &language);
};

void TestWindows::everyWindow_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("window");
    // Without a translation, the texts are the Italian ones of the sources.
    for (const char *language :
         {"it", "quorvane_de", "quorvane_en", "kavenapc_en", "kavenapc_it"}) {
        for (int i = 0; i < windows().size(); ++i)
            QTest::addRow("%s %s", windows()[i].name, language)
                << QString::fromLatin1(language) << i;
    }
}

void TestWindows::everyWindow()
{
    QFETCH(QString, language);
    QFETCH(int, window);
    QTranslator translator;
    if (language != QStringLiteral("it")) {
        QVERIFY(translator.load(QStringLiteral(":/trans/") + language));
        QCoreApplication::installTranslator(&translator);
    }
    OwnSettings::set(settings::language, language.right(2));

    const Shown shown(windows()[window]);
    QCOMPARE(cutTexts(*shown.window).join(QLatin1Char('\n')), QString());
    QCOMPARE(mnemonicClashes(*shown.window).join(QLatin1Char('\n')), QString());
    QCOMPARE(idleMnemonics(*shown.window).join(QLatin1Char('\n')), QString());
    QCOMPARE(namelessFields(*shown.window).join(QLatin1Char('\n')), QString());

    shown.window->resize(shown.window->minimumSizeHint().expandedTo(shown.window->minimumSize()));
    QTest::qWait(0);
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
        const QString file = QStringLiteral("%1/%2-%3-%4.png")
                                 .arg(folder, QString::fromLatin1(window.name), language,
                                      dark ? QStringLiteral("dark") : QStringLiteral("light"));
        QVERIFY2(shown.window->grab().save(file), qPrintable(file));
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

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    TestWindows test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_windows.moc"
