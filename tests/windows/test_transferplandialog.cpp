// The window of a transfer plan, driven as a user drives it.
#include "library/settings.h"
#include "support/plandialogfixture.h"

#include <QElapsedTimer>
#include <QSettings>

using namespace planfixture;

class TestTransferPlanDialog : public PlanDialogFixture
{
    Q_OBJECT

private slots:
    void init() { PlanDialogFixture::init(); }
    void cleanup() { PlanDialogFixture::cleanup(); }

    void groupsHaveCountsAndRoom();
    void warningSaysWhyItOpened();
    void warningForRoomOrNumberAloneSpeaksOfNothingElse();
    void songGetsEachOfItsRemedies_data();
    void songGetsEachOfItsRemedies();
    void severalSongsChangeAtOnce();
    void wholeGroupChangesAtOnce();
    void songTakesThePlaceOfAnotherOfTheList();
    void picturesOfNoSongAreTold();
    void songsGetOnlyWhatTheyCanHave();
    void nameIsChosenWithinTheRules();
    void tooLittleRoomKeepsThePlanFromGoing();
    void unknownRoomKeepsNothing();
    void tooManySongsKeepThePlanFromGoing();
    void nothingToDoIsSaid();
    void songsThatStayBehindAreCounted();
    void readBackIsRemembered();
    void memoryThatGoesIsNoticed();
    void closingIsNoDecision();
    void onlyAWarningOffersToCopyWithoutThePlan();
    void thousandsOfSongsAreQuick();
};

void TestTransferPlanDialog::groupsHaveCountsAndRoom()
{
    onCard(s("pop/same.mid"), "SAME");
    onCard(s("pop/differs.mid"), "OLD");
    onCard(s("pop/Mylong-1.mid"), "LONG");
    open(plan({song(s("a/x.mid"), "A"), song(s("b/x.mid"), "B"), song(s("c/x.mid"), "C"),
               song(s("My long name.mid"), "LONG"), song(s("differs.mid"), "NEW"),
               song(s("what?.mid"), "WHAT"), m_card->music() + s("/gone.mid"),
               song(s("same.mid"), "SAME")}));
    QCOMPARE(m_window->groups().join(QLatin1Char('\n')),
             QStringList({s("Nome già usato da un'altra song dell'elenco: 2 | Tieni entrambe "
                            "(nome nuovo) | 65.5 kB"),
                          s("Presenti con un nome accorciato: 1 | Niente da fare | 32.8 kB"),
                          s("Presenti, ma diverse: 1 | Sostituisci | 32.8 kB"),
                          s("Nome non adatto alla memoria o al player: 1 | Salta | 32.8 kB"),
                          s("Non leggibili: 1 | Salta | "), s("Nuove: 1 | Copia | 32.8 kB"),
                          s("Già presenti: 1 | Niente da fare | 32.8 kB")})
                 .join(QLatin1Char('\n')));
    QCOMPARE(PlanWindow::text(m_window->song(0, 1), 0), s("c/x.mid"));
    QCOMPARE(PlanWindow::text(m_window->song(0, 1), 2), s("/pop/x-2.mid"));
    QCOMPARE(PlanWindow::text(m_window->song(1, 0), 2), s("/pop/Mylong-1.mid"));
    QCOMPARE(PlanWindow::text(m_window->song(4, 0), 1), s("Salta: il file non c'è più"));
    // What goes as everybody expects is folded.
    for (int row = 0; row < 7; ++row)
        QCOMPARE(m_window->tree->isExpanded(m_window->group(row)), row < 5);
    QCOMPARE(m_window->counts->text(),
             s("Song aggiunte: 3. Sostituite: 1. Rimosse: 0. Song nella memoria dopo il "
               "trasferimento: 6."));
    QCOMPARE(m_window->room->text(),
             s("Occupati: 1.0 GB di 2.0 GB. Servono: 98.3 kB. Liberi: 1.0 GB."));
}

void TestTransferPlanDialog::warningSaysWhyItOpened()
{
    open(plan({song(s("a/x.mid"), "A"), song(s("b/x.mid"), "B")}));
    QCOMPARE(m_window->intro->text(), s("Alcune song hanno lo stesso nome: nella memoria ne "
                                        "resterebbe una sola. Non è stato ancora copiato niente."));
    onCard(s("pop/Mylong-1.mid"), "LONG");
    m_room = fatRoom(0);
    open(plan({song(s("My long name.mid"), "LONG"), song(s("new.mid"), "NEW")}));
    QCOMPARE(m_window->intro->text(),
             s("Alcune song sono già nella memoria con un nome accorciato: ci sarebbero due "
               "volte. Lo spazio libero nella memoria non basta per tutte le song. Non è stato "
               "ancora copiato niente."));
}

void TestTransferPlanDialog::warningForRoomOrNumberAloneSpeaksOfNothingElse()
{
    m_room = fatRoom(0);
    open(plan({song(s("new.mid"), "NEW")}));
    QCOMPARE(m_window->intro->text(), s("Lo spazio libero nella memoria non basta per tutte le "
                                        "song. Non è stato ancora copiato niente."));
    m_room = fatRoom();
    TransferPlan made = plan({song(s("new.mid"), "NEW")});
    made.songsThere = 65535;
    open(made);
    QCOMPARE(m_window->intro->text(), s("Il player non può trovare così tante song. Non è stato "
                                        "ancora copiato niente."));
}

void TestTransferPlanDialog::songGetsEachOfItsRemedies_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Remedy>("remedy");
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("counts");
    const QString after =
        s("Song aggiunte: %1. Sostituite: %2. Rimosse: 0. Song nella memoria dopo il "
          "trasferimento: %3.");
    QTest::newRow("keep both") << s("Tieni entrambe (nome nuovo)") << Remedy::KeepBoth
                               << s("/pop/x-1.mid") << after.arg(1).arg(0).arg(2);
    QTest::newRow("replace") << s("Sostituisci") << Remedy::Replace << s("/pop/x.mid")
                             << after.arg(0).arg(1).arg(1);
    QTest::newRow("sub-folder") << s("Copia in una sottocartella") << Remedy::SubFolder
                                << s("/pop/rock/x.mid") << after.arg(1).arg(0).arg(2);
    QTest::newRow("skip") << s("Salta") << Remedy::Skip << s("/pop/x.mid")
                          << after.arg(0).arg(0).arg(1);
}

void TestTransferPlanDialog::songGetsEachOfItsRemedies()
{
    QFETCH(QString, text);
    QFETCH(Remedy, remedy);
    QFETCH(QString, place);
    QFETCH(QString, counts);
    onCard(s("pop/x.mid"), "OLD");
    open(plan({song(s("rock/x.mid"), "NEW")}));
    QVERIFY(!m_window->remedies->isEnabled());
    m_window->select(m_window->song(0, 0));
    QCOMPARE(m_window->remedies->currentText(), s("Sostituisci"));
    QCOMPARE(m_window->offered(), QStringList({s("Sostituisci"), s("Tieni entrambe (nome nuovo)"),
                                               s("Copia in una sottocartella"), s("Salta")}));
    QVERIFY(m_window->choose(text));
    QCOMPARE(remedyOf(0), remedy);
    QCOMPARE(m_window->remedies->currentText(), text);
    QCOMPARE(PlanWindow::text(m_window->song(0, 0), 1), text);
    QCOMPARE(PlanWindow::text(m_window->song(0, 0), 2), place);
    QCOMPARE(m_window->counts->text(), counts);
    PlanWindow::click(m_window->carryOut);
    QCOMPARE(m_dialog->review(), Review::CarryOut);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
}

void TestTransferPlanDialog::severalSongsChangeAtOnce()
{
    QStringList files;
    for (const char *folder : {"a", "b", "c", "d"})
        files << song(s("%1/x.mid").arg(QString::fromLatin1(folder)), folder);
    open(plan(files));
    m_window->select(m_window->song(0, 0));
    m_window->select(m_window->song(0, 2), Qt::ControlModifier);
    QVERIFY(m_window->choose(s("Salta")));
    QCOMPARE(remedyOf(1), Remedy::Skip);
    QCOMPARE(remedyOf(2), Remedy::KeepBoth);
    QCOMPARE(remedyOf(3), Remedy::Skip);
    QVERIFY(!m_window->name->isEnabled());
    QVERIFY(m_window->groups().first().contains(s("| Diverso per ogni song |")));
}

void TestTransferPlanDialog::wholeGroupChangesAtOnce()
{
    QStringList files;
    for (const char *folder : {"a", "b", "c", "d"})
        files << song(s("%1/x.mid").arg(QString::fromLatin1(folder)), folder);
    open(plan(files));
    m_window->select(m_window->group(0));
    QVERIFY(m_window->choose(s("Copia in una sottocartella")));
    for (const int item : {1, 2, 3})
        QCOMPARE(remedyOf(item), Remedy::SubFolder);
    QCOMPARE(remedyOf(0), Remedy::Copy);
    QCOMPARE(m_dialog->plan().items.at(3).destination(), inFolder(s("d/x.mid")));
}

void TestTransferPlanDialog::songTakesThePlaceOfAnotherOfTheList()
{
    open(plan({song(s("a/x.mid"), "A"), song(s("b/x.mid"), "B")}));
    m_window->select(m_window->song(0, 0));
    QVERIFY(m_window->choose(s("Sostituisci")));
    QCOMPARE(remedyOf(0), Remedy::Skip);
    QCOMPARE(remedyOf(1), Remedy::Replace);
    QVERIFY(m_window->counts->text().startsWith(s("Song aggiunte: 1. Sostituite: 0. ")));
    QVERIFY(m_window->groups().last().contains(s("| Salta |")));
}

void TestTransferPlanDialog::picturesOfNoSongAreTold()
{
    m_card->writeOnCard(s("pop/a.cdg"), "of another song");
    open(plan({m_card->writeMusic(s("a.mp3"), "A")}), Purpose::Request);
    const QString why = s(": nella memoria ci sono altre immagini karaoke con il suo nome");
    QCOMPARE(PlanWindow::text(m_window->song(0, 0), 1), s("Sostituisci") + why);
    m_window->select(m_window->song(0, 0));
    QVERIFY(m_window->choose(s("Salta")));
    QCOMPARE(PlanWindow::text(m_window->song(0, 0), 1), s("Salta") + why);
}

void TestTransferPlanDialog::songsGetOnlyWhatTheyCanHave()
{
    onCard(s("pop/same.mid"), "SAME");
    onCard(s("pop/differs.mid"), "OLD");
    open(plan(
        {song(s("same.mid"), "SAME"), song(s("differs.mid"), "NEWER"), song(s("new.mid"), "NEW")}));
    m_window->tree->expandAll();
    m_window->tree->setFocus();
    QTest::keyClick(m_window->tree, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(m_window->remedies->currentIndex(), -1);
    QVERIFY(m_window->choose(s("Tieni entrambe (nome nuovo)")));
    QCOMPARE(remedyOf(0), Remedy::Skip);
    QCOMPARE(remedyOf(1), Remedy::KeepBoth);
    QCOMPARE(remedyOf(2), Remedy::Copy);
    m_window->select(m_window->song(2, 0)); // there is nothing to choose for the same song
    QVERIFY(!m_window->remedies->isEnabled());
    QCOMPARE(m_window->remedies->currentText(), s("Niente da fare"));
}

void TestTransferPlanDialog::nameIsChosenWithinTheRules()
{
    open(plan({song(s("a/x.mid"), "A"), song(s("b/x.mid"), "B")}));
    m_window->select(m_window->song(0, 0));
    QCOMPARE(m_window->name->text(), s("x-1.mid"));
    m_window->type(s("123456789.mid"));
    QVERIFY(!m_window->carryOut->isEnabled());
    QCOMPARE(m_window->state->text(),
             s("La song non può avere questo nome: il nome supera 8 caratteri"));
    m_window->type(s("X.mid"));
    QCOMPARE(m_window->state->text(),
             s("La song non può avere questo nome: un'altra song del piano ha questo nome"));
    m_window->type(s("live.mid"));
    QVERIFY(m_window->carryOut->isEnabled());
    QCOMPARE(PlanWindow::text(m_window->song(0, 0), 2), s("/pop/live.mid"));
    QTest::keyClick(m_window->name, Qt::Key_Return);
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_dialog->review(), Review::Cancel);

    // A name that cannot be had is forgotten with the selection.
    m_window->type(s("?.mid"));
    QVERIFY(!m_window->carryOut->isEnabled());
    m_window->select(m_window->song(1, 0));
    QVERIFY(m_window->carryOut->isEnabled());
    m_window->select(m_window->song(0, 0));
    QCOMPARE(m_window->name->text(), s("live.mid"));
}

void TestTransferPlanDialog::tooLittleRoomKeepsThePlanFromGoing()
{
    m_room = fatRoom(32768);
    open(plan({song(s("a.mid"), "A"), song(s("b.mid"), "B")}));
    QVERIFY(!m_window->carryOut->isEnabled());
    QCOMPARE(m_window->state->text(),
             s("Lo spazio libero non basta: mancano 32.8 kB. Decidi quali song saltare."));
    QTest::keyClick(m_dialog.get(), Qt::Key_Return);
    QVERIFY(m_dialog->isVisible());
    QVERIFY(m_window->asAlways->isEnabled());
    m_window->select(m_window->song(0, 1));
    QVERIFY(m_window->choose(s("Salta")));
    QVERIFY(m_window->carryOut->isEnabled());
    QCOMPARE(m_window->state->text(), s("Song scelte che non vengono copiate: 1"));
    QCOMPARE(m_window->room->text(),
             s("Occupati: 32.8 kB di 65.5 kB. Servono: 32.8 kB. Liberi: 32.8 kB."));
}

void TestTransferPlanDialog::unknownRoomKeepsNothing()
{
    MemoryRoom unknown = fatRoom();
    unknown.freeBytes = -1;
    unknown.totalBytes = -1;
    m_room = unknown;
    open(plan({song(s("a.mid"), "A")}));
    QCOMPARE(m_window->room->text(), s("Servono 32.8 kB. Lo spazio libero non è noto."));
    QVERIFY(m_window->carryOut->isEnabled());
    QVERIFY(!child<QWidget>(m_dialog.get(), "roomBar")->isVisible());
}

void TestTransferPlanDialog::tooManySongsKeepThePlanFromGoing()
{
    TransferPlan made = plan({song(s("a.mid"), "A")});
    made.songsThere = 65535;
    open(made);
    QVERIFY(!m_window->carryOut->isEnabled());
    QCOMPARE(m_window->state->text(),
             s("Troppe song per il player: 65536, il massimo è 65535. Decidi quali song saltare."));
    made.songsThere = 65534;
    open(made);
    QVERIFY(m_window->carryOut->isEnabled());
}

void TestTransferPlanDialog::nothingToDoIsSaid()
{
    onCard(s("pop/same.mid"), "SAME");
    open(plan({song(s("same.mid"), "SAME")}), Purpose::Request);
    QVERIFY(m_window->state->text().startsWith(s("Niente da copiare né da rimuovere")));
    QVERIFY(m_window->carryOut->isEnabled());
}

void TestTransferPlanDialog::songsThatStayBehindAreCounted()
{
    onCard(s("pop/same.mid"), "SAME");
    onCard(s("pop/Mylong-1.mid"), "LONG");
    const QStringList copied{song(s("new.mid"), "NEW"), song(s("same.mid"), "SAME"),
                             song(s("My long name.mid"), "LONG")};
    open(plan(copied));
    QCOMPARE(m_window->state->text(), QString()); // what lies there already does not stay behind
    open(
        plan(copied + QStringList{song(s("what?.mid"), "WHAT"), m_card->music() + s("/gone.mid")}));
    QCOMPARE(m_window->state->text(), s("Song scelte che non vengono copiate: 2"));
    open(plan({copied.at(1), m_card->music() + s("/gone.mid")}));
    QCOMPARE(m_window->state->text(),
             s("Niente da copiare né da rimuovere: «Esegui» aggiorna soltanto il database della "
               "memoria. Song scelte che non vengono copiate: 1"));
}

void TestTransferPlanDialog::readBackIsRemembered()
{
    const auto remembered = [] {
        return QSettings(settings::organisation, settings::application)
            .value(settings::readBack, false)
            .toBool();
    };
    TransferPlan made = plan({song(s("a.mid"), "A")});
    open(made);
    QVERIFY(!m_window->readBack->isChecked());
    QVERIFY(!remembered());
    PlanWindow::click(m_window->readBack);
    QVERIFY(remembered());
    QVERIFY(m_dialog->plan().readBack);
    made.readBack = true;
    open(made);
    QVERIFY(m_window->readBack->isChecked());
    PlanWindow::click(m_window->readBack);
    QVERIFY(!remembered());
    QVERIFY(!m_dialog->plan().readBack);
}

void TestTransferPlanDialog::memoryThatGoesIsNoticed()
{
    const QString gone = s("La memoria non c'è più. È stata estratta?");
    const QString elsewhere = m_card->root() + s("-pulled");
    open(plan({song(s("a.mid"), "A")}));
    QVERIFY(QDir().rename(m_card->root(), elsewhere));
    PlanWindow::click(m_window->carryOut); // sooner than the window looks
    QCOMPARE(m_dialog->review(), Review::Cancel);
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(m_window->state->text(), gone);
    QVERIFY(!m_window->carryOut->isEnabled());
    QVERIFY(!m_window->asAlways->isEnabled());
    QVERIFY(QDir().rename(elsewhere, m_card->root()));
    QTRY_VERIFY(m_window->carryOut->isEnabled());
    QVERIFY(QDir().rename(m_card->root(), elsewhere));
    QTRY_COMPARE(m_window->state->text(), gone);
    QVERIFY(!m_window->carryOut->isEnabled());
    PlanWindow::click(m_window->cancel);
    QVERIFY(!m_dialog->isVisible());
    QVERIFY(QDir().rename(elsewhere, m_card->root()));
}

void TestTransferPlanDialog::closingIsNoDecision()
{
    const TransferPlan made = plan({song(s("a.mid"), "A")});
    open(made);
    PlanWindow::click(m_window->cancel);
    QCOMPARE(m_dialog->review(), Review::Cancel);
    open(made);
    QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
    QCOMPARE(m_dialog->review(), Review::Cancel);
    open(made);
    m_dialog->close();
    QCOMPARE(m_dialog->review(), Review::Cancel);
}

void TestTransferPlanDialog::onlyAWarningOffersToCopyWithoutThePlan()
{
    const TransferPlan made = inLine();
    open(made, Purpose::Request);
    QVERIFY(!m_window->asAlways->isVisible());
    QVERIFY(m_window->others->isVisible());
    open(made, Purpose::Warning);
    QVERIFY(!m_window->others->isVisible());
    PlanWindow::click(m_window->asAlways);
    QCOMPARE(m_dialog->review(), Review::AsAlways);
}

void TestTransferPlanDialog::thousandsOfSongsAreQuick()
{
    constexpr int count = 3000;
    constexpr qint64 atOnce = 1000; // in a build without optimisation, on a busy computer
    TransferPlan made = plan({song(s("a.mid"), "A")});
    const TransferPlan::Item one = made.items.takeFirst();
    for (int i = 0; i < count; ++i) {
        TransferPlan::Item item = one;
        item.path = m_card->music() + s("/folder%1/song%1.mid").arg(i);
        item.target = inFolder(s("song%1.mid").arg(i));
        item.state = i % 2 == 0 ? State::New : State::Collides;
        item.remedy = i % 2 == 0 ? Remedy::Copy : Remedy::KeepBoth;
        item.keepBothTarget = inFolder(s("s%1.mid").arg(i));
        made.items.append(item);
    }
    QElapsedTimer timer;
    timer.start();
    open(made);
    QVERIFY2(timer.elapsed() < 2 * atOnce, qPrintable(QString::number(timer.elapsed())));
    timer.start();
    m_window->tree->expandAll();
    QTest::keyClick(m_window->tree, Qt::Key_A, Qt::ControlModifier);
    QCoreApplication::processEvents();
    QVERIFY2(timer.elapsed() < atOnce, qPrintable(QString::number(timer.elapsed())));
    timer.start();
    QVERIFY(m_window->choose(s("Salta")));
    QCoreApplication::processEvents();
    QVERIFY2(timer.elapsed() < atOnce, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(m_dialog->plan().count(Remedy::Skip), count);
    m_window->select(m_window->song(0, 100));
    QVERIFY(m_window->choose(s("Tieni entrambe (nome nuovo)")));
    timer.start();
    m_window->type(s("live"));
    QVERIFY2(timer.elapsed() < atOnce, qPrintable(QString::number(timer.elapsed())));
}

int main(int argc, char **argv)
{
    const OwnSettings ownSettings;
    const QApplication app(argc, argv);
    TestTransferPlanDialog test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_transferplandialog.moc"
