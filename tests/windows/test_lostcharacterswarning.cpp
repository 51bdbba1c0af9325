// The dialogs tell the characters that a format cannot hold.
#include "support/librarytable.h"
#include "support/settled.h"
#include "support/songbytes.h"
#include "windows/changepreviewdialog.h"
#include "windows/dataeditdialog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTranslator>
#include <QTreeWidget>

namespace
{

/** A dialog on screen that shows a song without foreign characters. */
class OpenDialog
{
public:
    OpenDialog()
    {
        SongInfo info;
        info.title = QStringLiteral("Città");
        info.fileName = QStringLiteral("/music/Ťitle.mid");
        dialog.setOtherInfo(info);
        dialog.show();
    }

    template <typename Widget>
    Widget *child(const char *name) const
    {
        return dialog.findChild<Widget *>(QString::fromLatin1(name));
    }
    QString warning() const { return child<QLabel>("lostCharactersLabel")->text(); }
    void type(const char *name, const QString &text) const
    {
        auto *const widget = child<QWidget>(name);
        const auto *const combo = qobject_cast<QComboBox *>(widget);
        QLineEdit *const field =
            combo == nullptr ? qobject_cast<QLineEdit *>(widget) : combo->lineEdit();
        field->setFocus();
        field->selectAll();
        field->insert(text);
    }

    DataEditDialog dialog;
};

QString warningOf(const QString &characters)
{
    return QStringLiteral("Il player mostrerà \"?\" al posto di: ") + characters;
}

} // namespace

class TestLostCharactersWarning : public QObject
{
    Q_OBJECT

private slots:
    void dialogTellsThemWhileTheyAreTyped_data();
    void dialogTellsThemWhileTheyAreTyped();
    void dialogTellsAllFieldsAtOnce();
    void fileNameAsTitleIsTold();
    void nextSongStartsWithoutWarning();
    void nothingMovesWhenTheWarningComes();
    void longWarningDoesNotWidenTheDialog();
    void warningFollowsTheLanguage();
    void previewWindowShowsThem();
};

void TestLostCharactersWarning::dialogTellsThemWhileTheyAreTyped_data()
{
    QTest::addColumn<QString>("field");
    for (const char *field : {"titleLineEdit", "artistComboBox", "genreComboBox", "authorLineEdit"})
        QTest::newRow(field) << QString::fromLatin1(field);
}

void TestLostCharactersWarning::dialogTellsThemWhileTheyAreTyped()
{
    QFETCH(QString, field);
    const QByteArray name = field.toLatin1();
    const OpenDialog open;
    QCOMPARE(open.warning(), QString());
    open.type(name.constData(), QStringLiteral("Dvo"));
    QCOMPARE(open.warning(), QString());
    open.type(name.constData(), QStringLiteral("Dvoř"));
    QCOMPARE(open.warning(), warningOf(QStringLiteral("ř")));
    open.type(name.constData(), QStringLiteral("Dvořák’s"));
    QCOMPARE(open.warning(), warningOf(QStringLiteral("ř, ’")));
    open.type(name.constData(), QStringLiteral("Dvorák"));
    QCOMPARE(open.warning(), QString());
}

void TestLostCharactersWarning::dialogTellsAllFieldsAtOnce()
{
    const OpenDialog open;
    open.type("authorLineEdit", QStringLiteral("Żź"));
    open.type("titleLineEdit", QStringLiteral("źŁ"));
    QCOMPARE(open.warning(), warningOf(QStringLiteral("ź, Ł, Ż")));
}

void TestLostCharactersWarning::fileNameAsTitleIsTold()
{
    const OpenDialog open;
    open.child<QAbstractButton>("radioButtonTitle2")->click();
    QCOMPARE(open.warning(), warningOf(QStringLiteral("Ť")));
    open.child<QAbstractButton>("radioButtonTitle1")->click();
    QCOMPARE(open.warning(), QString());
}

void TestLostCharactersWarning::nextSongStartsWithoutWarning()
{
    OpenDialog open;
    open.type("artistComboBox", QStringLiteral("Ł"));
    QVERIFY(!open.warning().isEmpty());
    open.dialog.setOtherInfo(SongInfo());
    QCOMPARE(open.warning(), QString());
}

void TestLostCharactersWarning::nothingMovesWhenTheWarningComes()
{
    const OpenDialog open;
    const auto places = [&open] {
        QList<QRect> all{open.dialog.geometry()};
        for (const QWidget *widget : open.dialog.findChildren<QWidget *>())
            all.append(QRect(widget->mapTo(&open.dialog, QPoint()), widget->size()));
        return all;
    };
    const QList<QRect> before = places();
    open.type("titleLineEdit", QStringLiteral("Ł"));
    QVERIFY(!open.warning().isEmpty());
    QVERIFY(settled::processAll());
    QCOMPARE(places(), before);
    const auto *const label = open.child<QLabel>("lostCharactersLabel");
    QVERIFY(label->isVisible());
    QVERIFY(label->height() >= label->fontMetrics().height());
}

void TestLostCharactersWarning::longWarningDoesNotWidenTheDialog()
{
    const OpenDialog open;
    const QSize before = open.dialog.size();
    QString greek;
    for (char16_t letter = 0x391; letter < 0x3FF; ++letter)
        greek.append(QChar(letter));
    open.type("titleLineEdit", greek);
    QVERIFY(settled::processAll());
    QCOMPARE(open.dialog.size(), before);
    QVERIFY(open.dialog.minimumSizeHint().width() <= before.width());
}

void TestLostCharactersWarning::warningFollowsTheLanguage()
{
    const OpenDialog open;
    open.type("titleLineEdit", QStringLiteral("Ł"));
    class Marked : public QTranslator
    {
    public:
        QString translate(const char *, const char *source, const char *, int) const override
        {
            return QStringLiteral("X-") + QString::fromUtf8(source);
        }
        bool isEmpty() const override { return false; }
    } translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QTRY_COMPARE(open.warning(), QStringLiteral("X-") + warningOf(QStringLiteral("Ł")));
    QCoreApplication::removeTranslator(&translator);
}

void TestLostCharactersWarning::previewWindowShowsThem()
{
    ChangePreview preview;
    preview.songs = 1;
    preview.changed = {{QStringLiteral("/music/song.mid"),
                        QString(),
                        true,
                        {{ChangePreview::Field::Artist, QString(), QStringLiteral("DVO?ÁK"),
                          QStringLiteral("Ř")}}}};
    const ChangePreviewDialog dialog(preview, false);
    const auto *const tree = dialog.findChild<QTreeWidget *>(QStringLiteral("changesTreeWidget"));
    QCOMPARE(tree->topLevelItem(0)->child(0)->text(2),
             QStringLiteral("DVO?ÁK (\"?\" al posto di: Ř)"));
}

QTEST_MAIN(TestLostCharactersWarning)

#include "test_lostcharacterswarning.moc"
