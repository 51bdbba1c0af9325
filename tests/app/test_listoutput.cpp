// The list of songs on the clipboard and on paper.
#include "support/apptest.h"
#include "support/columndriver.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "windows/tablepages.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTableView>

#include <memory>

using namespace columndriver;

namespace
{

/** Notes each text that is painted, and the page that it is painted on. */
class NotingEngine : public QPaintEngine
{
public:
    NotingEngine()
        : QPaintEngine(AllFeatures)
    {
    }
    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
    void drawPolygon(const QPointF *, int, PolygonDrawMode) override {}
    Type type() const override { return User; }
    void drawTextItem(const QPointF &place, const QTextItem &item) override
    {
        pages.last() << item.text();
        lowest = qMax(lowest, place.y());
        rightmost = qMax(rightmost, place.x() + item.width());
    }

    QList<QStringList> pages{{}};
    qreal lowest = 0;
    qreal rightmost = 0;
};

/** Paper of this size. */
class NotingPaper : public QPaintDevice
{
public:
    explicit NotingPaper(QSize size)
        : m_size(size)
    {
    }
    bool takes(const TablePages &pages, int first = 0, int last = 0)
    {
        return pages.paint(
            *this,
            [this] {
                m_engine.pages.append(QStringList());
                return true;
            },
            first, last);
    }
    QPaintEngine *paintEngine() const override { return &m_engine; }
    NotingEngine &noted() { return m_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDevicePixelRatio:
            return 1;
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    const QSize m_size;
    mutable NotingEngine m_engine;
};

TextTable rowsOf(int count)
{
    TextTable table{{s("Number"), s("Name")}, {}};
    for (int row = 0; row < count; ++row)
        table.rows.append({QStringLiteral("n%1").arg(row), s("name")});
    return table;
}

/** The keys of a menu work in the active window only. */
void becomeActive(WindowUnderTest &window)
{
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.table()->setFocus();
}

/** Presses the button of the dialog for printing that prints. */
void pressPrint(QPrintDialog *dialog)
{
    for (auto *box : dialog->findChildren<QDialogButtonBox *>()) {
        for (auto *button : box->buttons()) {
            if (box->buttonRole(button) == QDialogButtonBox::AcceptRole)
                return clickLater(button);
        }
    }
    qFatal("no button that prints");
}

QString clipboardText()
{
    return QApplication::clipboard()->text();
}

} // namespace

class TestListOutput : public AppFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        AppFixture::init();
        QApplication::clipboard()->clear();
    }
    void cleanup() { AppFixture::cleanup(); }

    void nothingToDoWithAnEmptyList();
    void chosenRowIsCopied();
    void withoutAChoiceAllShownRowsAreCopied();
    void copyFollowsTheColumnsOfTheList();
    void keyInTheSearchFieldCopiesItsText();
    void breaksWithinTextsBecomeBlanks();

    void pagesCarryTitleHeadingsRowsAndNumbers();
    void headingsAreWhole();
    void everyRowIsOnOnePage();
    void rangeOfPagesIsPainted();
    void wideTextsStayOnThePage();
    void longTextGoesOnInFurtherLines();

    void listIsPrintedIntoAPdf();
    void songIsNotOverwrittenByPaper();
    void refusedFolderIsTold();
    void nothingIsPrintedWhenTheUserCancels();

private:
    /** Prints to the file, as a user chooses it in the dialog for printing. */
    void printInto(WindowUnderTest &window, const QString &path, ModalAnswers &user)
    {
        user.add([path](QWidget *modal) {
            auto *const dialog = qobject_cast<QPrintDialog *>(modal);
            if (dialog == nullptr || nextStep(dialog) > 0)
                return dialog != nullptr;
            dialog->findChild<QLineEdit *>(s("filename"))->setText(path);
            pressPrint(dialog);
            return true;
        });
        window.action("actionPrint")->trigger();
    }

    const SongFolder m_songs;
};

// ---------------------------------------------------------------- clipboard
void TestListOutput::nothingToDoWithAnEmptyList()
{
    WindowUnderTest window;
    for (const char *action : {"actionCopyRow", "actionCopyList", "actionPrint"})
        QVERIFY(!window.action(action)->isEnabled());
    importTwo(window, m_songs);
    for (const char *action : {"actionCopyRow", "actionCopyList", "actionPrint"})
        QVERIFY(window.action(action)->isEnabled());
}

void TestListOutput::chosenRowIsCopied()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    window.table()->selectRow(1);
    becomeActive(window);
    QTest::keyClick(window.table(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clipboardText(),
             s("Formato\tTitolo\tArtista\tGenere\tAutore\tDurata\tBpm\tTonalita'\tNome file\n"
               "MIDI\tAlpha\t\t\t\t00:00\t0\t\ta.mid\n"));
    QCOMPARE(window.child<QStatusBar>("statusBar")->currentMessage(),
             s("Song copiate negli appunti: 1"));
}

void TestListOutput::withoutAChoiceAllShownRowsAreCopied()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    window.table()->clearSelection();
    becomeActive(window);
    QTest::keyClick(window.table(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clipboardText().count(QLatin1Char('\n')), 3);
    window.child<QLineEdit>("filterLineEdit")->setText(s("alpha"));
    window.table()->selectRow(1);
    window.action("actionCopyList")->trigger();
    const QStringList lines = clipboardText().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(1).contains(s("\tAlpha\t")));
}

void TestListOutput::copyFollowsTheColumnsOfTheList()
{
    OwnSettings::set(settings::columnsShown, QStringList{s("type"), s("title"), s("folder")});
    OwnSettings::set(settings::columnOrder, QStringList{s("folder"), s("title")});
    WindowUnderTest window;
    importTwo(window, m_songs);
    window.table()->selectRow(0);
    window.action("actionCopyRow")->trigger();
    QCOMPARE(clipboardText(), s("Cartella\tTitolo\tFormato\n") +
                                  QFileInfo(window.model()->fileName(0)).path() +
                                  s("\tBravo\tMIDI\n"));
}

void TestListOutput::keyInTheSearchFieldCopiesItsText()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    auto *const field = window.child<QLineEdit>("filterLineEdit");
    field->setFocus();
    field->setText(s("rav"));
    field->selectAll();
    QTest::keyClick(field, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clipboardText(), s("rav"));
}

void TestListOutput::breaksWithinTextsBecomeBlanks()
{
    const TextTable table{{s("A"), s("B")}, {{s("one\ttwo\r\nthree"), s("")}, {s(""), s("x")}}};
    QCOMPARE(table.tabSeparated(), s("A\tB\none two  three\t\n\tx\n"));
}

// ---------------------------------------------------------------- paper
void TestListOutput::pagesCarryTitleHeadingsRowsAndNumbers()
{
    NotingPaper paper(QSize(600, 800));
    QVERIFY(paper.takes(TablePages(rowsOf(2), s("The title"), QFont())));
    QCOMPARE(paper.noted().pages, QList<QStringList>{QStringList(
                                      {s("The title"), s("Number"), s("Name"), s("Pagina 1 di 1"),
                                       s("n0"), s("name"), s("n1"), s("name")})});
}

void TestListOutput::headingsAreWhole()
{
    const QStringList headings{s("Format"), s("Titel"),  s("Interpret"), s("Musikrichtung"),
                               s("Autor"),  s("Dauer"),  s("BPM"),       s("Tonart"),
                               s("Ordner"), s("Length"), s("Key"),       s("Genere")};
    TextTable table{headings, {}};
    table.rows.append(QStringList(headings.size(), s("x")));
    NotingPaper paper(QSize(2000, 800));
    QVERIFY(paper.takes(TablePages(table, s("The title"), QFont())));
    QCOMPARE(paper.noted().pages.constFirst().mid(1, headings.size()), headings);
}

void TestListOutput::everyRowIsOnOnePage()
{
    NotingPaper paper(QSize(600, 400));
    QVERIFY(paper.takes(TablePages(rowsOf(100), s("The title"), QFont())));
    const QList<QStringList> &pages = paper.noted().pages;
    QVERIFY(pages.size() > 3);
    QStringList rows;
    for (qsizetype page = 0; page < pages.size(); ++page) {
        QCOMPARE(pages.at(page).count(s("Number")), 1);
        QCOMPARE(
            pages.at(page).count(QStringLiteral("Pagina %1 di %2").arg(page + 1).arg(pages.size())),
            1);
        for (const QString &text : pages.at(page)) {
            if (text.startsWith(QLatin1Char('n')) && text != s("name"))
                rows << text;
        }
    }
    QStringList expected;
    for (int row = 0; row < 100; ++row)
        expected << QStringLiteral("n%1").arg(row);
    QCOMPARE(rows, expected);
    QVERIFY(paper.noted().lowest <= 400);
}

void TestListOutput::rangeOfPagesIsPainted()
{
    NotingPaper paper(QSize(600, 400));
    QVERIFY(paper.takes(TablePages(rowsOf(100), s("The title"), QFont()), 2, 3));
    const QList<QStringList> &pages = paper.noted().pages;
    QCOMPARE(pages.size(), 2);
    QVERIFY(!pages.constFirst().contains(s("n0")));
    QVERIFY(pages.constLast().join(QLatin1Char(' ')).contains(s("Pagina 3 di ")));
}

void TestListOutput::wideTextsStayOnThePage()
{
    TextTable table{{s("A"), s("B"), s("C")}, {}};
    const QString wide(300, QLatin1Char('W'));
    table.rows.append({wide, s("short"), wide});
    NotingPaper paper(QSize(500, 800));
    QVERIFY(paper.takes(TablePages(table, s("The title"), QFont())));
    QVERIFY(paper.noted().rightmost <= 500);
    QVERIFY(paper.noted().pages.constFirst().contains(s("short")));
}

void TestListOutput::longTextGoesOnInFurtherLines()
{
    TextTable table{{s("A"), s("B")}, {}};
    QStringList words;
    for (int word = 0; word < 60; ++word)
        words << QStringLiteral("word%1").arg(word);
    table.rows.append({words.join(QLatin1Char(' ')), s("b")});
    table.rows.append({s("below"), s("b")});
    NotingPaper paper(QSize(500, 800));
    QVERIFY(paper.takes(TablePages(table, s("The title"), QFont())));
    QCOMPARE(paper.noted().pages.size(), 1);
    const QString painted = paper.noted().pages.constFirst().join(QLatin1Char(' '));
    for (const QString &word : std::as_const(words))
        QVERIFY2(painted.contains(word), qPrintable(word));
    QVERIFY(painted.contains(s("below")));
}

void TestListOutput::listIsPrintedIntoAPdf()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    ModalAnswers user;
    const QString path = m_work->path() + s("/list.pdf");
    printInto(window, path, user);
    QFile file(path);
    QVERIFY(file.open(QFile::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.startsWith("%PDF-"));
    QVERIFY(bytes.trimmed().endsWith("%%EOF"));
    QVERIFY(bytes.contains("/Count 1"));
    QProcess reader;
    reader.start(s("/usr/bin/python3"), {QFINDTESTDATA("tools/pdf_text.py"), path});
    QVERIFY(reader.waitForFinished(60000));
    QCOMPARE(QString::fromUtf8(reader.readAllStandardOutput()),
             s("Lista delle song: 2 songFormatoTitoloArtistaGenereAutoreDurataBpmTonalita'Nome file"
               "Pagina 1 di 1MIDIBravo00:000b.midMIDIAlpha00:000a.mid\n"));
    QCOMPARE(window.child<QStatusBar>("statusBar")->currentMessage(),
             s("Lista salvata in ") + QDir::toNativeSeparators(path));
    // A page that lies on its side.
    QVERIFY(bytes.contains("/MediaBox [0 0 842") || bytes.contains("/MediaBox [0 0 792"));
}

void TestListOutput::songIsNotOverwrittenByPaper()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    const QString song = window.model()->fileName(0);
    QFile file(song);
    QVERIFY(file.open(QFile::ReadOnly));
    const QByteArray before = file.readAll();
    UserDriver user;
    // The dialog asks about the file that exists, then the program refuses.
    QStringList told;
    user.add([&told](QWidget *modal) {
        auto *const box = qobject_cast<QMessageBox *>(modal);
        if (box == nullptr)
            return false;
        told << box->text();
        QAbstractButton *const yes = box->button(QMessageBox::Yes);
        QTest::mouseClick(yes != nullptr ? yes : box->button(QMessageBox::Ok), Qt::LeftButton);
        return true;
    });
    printInto(window, song, user);
    QVERIFY2(told.size() == 2, qPrintable(told.join(QLatin1Char('|'))));
    QVERIFY(told.constLast().contains(s("Il file è una song e non viene sostituito")));
    file.seek(0);
    QCOMPARE(file.readAll(), before);
    QFile now(song);
    QVERIFY(now.open(QFile::ReadOnly));
    QCOMPARE(now.readAll(), before);
}

void TestListOutput::refusedFolderIsTold()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    QDir().mkdir(m_work->path() + s("/there"));
    UserDriver user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    bool asked = false;
    user.add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<QPrintDialog *>(modal);
        if (dialog == nullptr)
            return false;
        dialog->findChild<QLineEdit *>(s("filename"))->setText(m_work->path() + s("/there/x.pdf"));
        if (!asked) // the folder goes between the dialog's look at it and the writing
            QMetaObject::invokeMethod(dialog, "accept");
        asked = true;
        QDir().rmdir(m_work->path() + s("/there"));
        return true;
    });
    window.action("actionPrint")->trigger();
    QCOMPARE(user.messages().size(), 1);
    QVERIFY2(user.messages().constFirst().contains(s("La cartella non esiste")),
             qPrintable(user.messages().constFirst()));
}

void TestListOutput::nothingIsPrintedWhenTheUserCancels()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    ModalAnswers user;
    user.add([](QWidget *modal) {
        auto *const dialog = qobject_cast<QPrintDialog *>(modal);
        if (dialog != nullptr)
            dialog->reject();
        return dialog != nullptr;
    });
    const QStringList before = QDir(m_work->path()).entryList(QDir::Files);
    window.action("actionPrint")->trigger();
    QCOMPARE(QDir(m_work->path()).entryList(QDir::Files), before);
}

int main(int argc, char *argv[])
{
    return runAppTest<TestListOutput>(argc, argv);
}

#include "test_listoutput.moc"
