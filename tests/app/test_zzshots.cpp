#include "app/aboutdialog.h"
#include "app/backupdialog.h"
#include "app/helpdialog.h"
#include "app/mainwindow.h"
#include "app/proceeddialog.h"
#include "app/translation.h"
#include "support/ownfolders.h"
#include "support/samplesongs.h"
#include "support/userdriver.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <QToolButton>
int main(int argc, char **argv)
{
    OwnSettings s;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication a(argc, argv);
    const QString out = QStringLiteral("/tmp/probe/shots/");
    QDir().mkpath(out);
    if (argc > 1 && QByteArray(argv[1]) == "dark") {
        QPalette p;
        p = QPalette(QColor(45, 45, 48));
        a.setStyle(QStringLiteral("Fusion"));
        a.setPalette(p);
    }
    QTranslator p, q;
    translation::installGerman(p, q);
    MainWindow w;
    w.show();
    UserDriver u;
    QStringList f = samplesongs::installedMidiFiles();
    if (f.isEmpty())
        qFatal("none");
    u.pick(f);
    u.pressInMessageBoxes(QMessageBox::Yes);
    w.findChild<QToolButton *>(QStringLiteral("selectDirToolButton"))->click();
    QTest::qWait(100);
    w.grab().save(out + QStringLiteral("main_de.png"));
    auto shot = [&](QWidget &d, const char *n) {
        d.show();
        QTest::qWait(30);
        d.grab().save(out + QString::fromLatin1(n) + QStringLiteral(".png"));
        d.close();
    };
    for (const char *l : {"de", "en", "it"}) {
        if (*l == 'e') {
            OwnSettings::set(settings::language, QStringLiteral("en"));
            translation::installEnglish(p);
        }
        if (*l == 'i') {
            QCoreApplication::removeTranslator(&p);
            QCoreApplication::removeTranslator(&q);
        }
        QApplication::processEvents();
        QByteArray L(l);
        {
            AboutDialog d;
            shot(d, ("about_" + L).constData());
        }
        {
            HelpDialog d;
            shot(d, ("help_" + L).constData());
        }
        {
            BackupDialog d;
            shot(d, ("backup_" + L).constData());
        }
        {
            ProceedDialog d;
            d.setFilesCount(38, 12, 2);
            shot(d, ("proceed_" + L).constData());
        }
        shot(w, ("mainl_" + L).constData());
        for (auto *m : w.findChildren<QMenu *>()) {
            m->popup(QPoint(0, 0));
            QTest::qWait(20);
            m->grab().save(out + QStringLiteral("menu_") + m->objectName() +
                           QString::fromLatin1(L) + QStringLiteral(".png"));
            m->close();
        }
    }
    w.findChild<QWidget *>(QStringLiteral("debugGroupBox"))->show();
    w.findChild<QWidget *>(QStringLiteral("debugKravoGroupBox"))->show();
    shot(w, "debug");
}
