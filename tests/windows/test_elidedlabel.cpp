// The label for paths of any length.
#include "windows/elidedlabel.h"

#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

class TestElidedLabel : public QObject
{
    Q_OBJECT

private slots:
    void textStaysWhole();
    void longTextDoesNotWidenItsWindow();
    void middleOfALongTextIsLeftOut();
    void toolTipShowsATextThatIsCut();
    void toolTipTakesNoPathForMarkUp();

private:
    static QString toolTipOf(ElidedLabel &label);
};

namespace
{
const QString longText = QStringLiteral("/folder/") + QString(300, QLatin1Char('w')) +
                         QStringLiteral("/Song & Dance.mid");
}

/** What the tool tip says while the mouse rests on the label; empty when there is none. */
QString TestElidedLabel::toolTipOf(ElidedLabel &label)
{
    QToolTip::hideText();
    QHelpEvent help(QEvent::ToolTip, QPoint(3, 3), label.mapToGlobal(QPoint(3, 3)));
    QCoreApplication::sendEvent(&label, &help);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

void TestElidedLabel::textStaysWhole()
{
    ElidedLabel label;
    label.setText(longText);
    label.resize(100, 20);
    label.show();
    QCOMPARE(label.text(), longText);
}

void TestElidedLabel::longTextDoesNotWidenItsWindow()
{
    ElidedLabel label;
    label.setText(longText);
    QVERIFY(label.minimumSizeHint().width() < 300);
    QVERIFY(label.minimumSizeHint().height() >= label.fontMetrics().height());
}

void TestElidedLabel::middleOfALongTextIsLeftOut()
{
    const auto picture = [](const QString &text) {
        ElidedLabel label;
        label.setText(text);
        label.resize(200, 20);
        return label.grab().toImage();
    };
    const QString otherMiddle = QString(longText).replace(100, 50, QString(50, QLatin1Char('x')));
    QCOMPARE(picture(otherMiddle), picture(longText));
    QVERIFY(picture(QStringLiteral("/F") + longText.mid(2)) != picture(longText));
    QVERIFY(picture(longText.chopped(4) + QStringLiteral(".kar")) != picture(longText));
}

void TestElidedLabel::toolTipShowsATextThatIsCut()
{
    ElidedLabel label;
    label.resize(200, 20);
    label.show();
    label.setText(QStringLiteral("/a.mid"));
    QCOMPARE(toolTipOf(label), QString());
    label.setText(longText);
    QCOMPARE(toolTipOf(label), QStringLiteral("<span>%1</span>").arg(longText.toHtmlEscaped()));
}

void TestElidedLabel::toolTipTakesNoPathForMarkUp()
{
    ElidedLabel label;
    label.resize(50, 20);
    label.show();
    label.setText(QStringLiteral("/music/<b>loud</b> & <i>long</i>/song.mid"));
    QVERIFY(toolTipOf(label).contains(
        QStringLiteral("/music/&lt;b&gt;loud&lt;/b&gt; &amp; &lt;i&gt;long")));
}

QTEST_MAIN(TestElidedLabel)
#include "test_elidedlabel.moc"
