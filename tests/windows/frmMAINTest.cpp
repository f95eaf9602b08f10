// The main window on the offscreen platform: the grid gesture, the enabling rules, a development
// on the worker thread with its progress window, stopping it, the lock and "Modifica Sistema",
// the stake and the status line, the save and open round trip, and the question on closing.
#include "windows/frmMAIN.h"
#include "core/Cartelle.h"
#include "core/Sistema.h"
#include "platform/ApplyLanguage.h"
#include "tests/support/StateBuilder.h"
#include "tests/windows/FinestraPrincipaleProva.h"
#include "windows/frmAbout.h"
#include "windows/frmCalcolo.h"
#include "windows/frmCalcoloWorker.h"
#include "windows/frmFiltri.h"
#include "windows/frmImpostazioni.h"
#include "windows/frmMAINFile.h"
#include "windows/frmMAINOperazioni.h"
#include "windows/frmSomma.h"
#include "windows/frmVisualizza.h"
#include "windows/QtUi.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>

using namespace dv;

namespace {
// The language of the tests: a few messages, and captions of the main window and the progress window.
const char* const LinguaProva = R"([Strings]
0001="Colonne integrali"
0002="Colonne elaborate"
0003="Colonne sistema"
0004="Interrompere?"
0012="Superato il limite di colonne"
0042="Numeri in gioco"
0053="Uscire?"
0054="Modificare il sistema?"
0055="Attenzione"
0060="Condizionato"
0062="Integrale"

[frmMAIN]
cmdCalcolo.Caption="Sviluppa"
optImporto(9).Caption="200 euro"
menuOperazioni.Caption="&Lavori"

[frmCalcolo]
cmdSvilAnnulla.Caption="&Ferma"
)";
} // namespace

class frmMAINTest : public QObject, test::FinestraPrincipaleProva {
    Q_OBJECT

    QRadioButton* opzione(const char* name, int i) {
        return elementoArray<QRadioButton>(*m_main, QString::fromLatin1(name), i);
    }
    void scegli(std::initializer_list<int> numbers) {
        for (int n : numbers)
            clicca(n - 1);
    }
    // Presses on cell from, sweeps over the cells of path with the button held, and releases.
    void trascina(int from, std::initializer_list<int> path) {
        QLabel* pressed = cella(from);
        QTest::mousePress(pressed, Qt::LeftButton, {}, pressed->rect().center());
        for (int to : path) {
            const QPoint global = to < 0 ? m_main->mapToGlobal(QPoint(1, 1))
                                         : cella(to)->mapToGlobal(cella(to)->rect().center());
            QMouseEvent move(QEvent::MouseMove, pressed->mapFromGlobal(global), global, Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(pressed, &move);
        }
        QTest::mouseRelease(pressed, Qt::LeftButton);
    }

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy)); }

    void init() { apri({{"prova", LinguaProva}}); }
    void cleanup() { chiudi(); }

    void startsEmptyWithTheFirstStakeAndKindOfPlay() {
        QCOMPARE(pannello(1), QStringLiteral("nuovo.dvs"));
        QCOMPARE(pannello(2), QStringLiteral("0"));
        QCOMPARE(pannello(3), QStringLiteral("\u20AC 0,00"));
        QVERIFY(opzione("optImporto", 0)->isChecked());
        QVERIFY(opzione("optTipoGiocata", 0)->isChecked());
        QCOMPARE(m_main->findChild<QLabel*>(QStringLiteral("labnumeri"))->text(),
                 QStringLiteral("Numeri in gioco [00]"));
        QVERIFY(m_main->windowTitle().startsWith(QStringLiteral("Dorvanta - Ver. ")));
        // The language file's captions replace the Italian ones where it has an entry.
        QCOMPARE(m_main->pulsante(QStringLiteral("cmdCalcolo"))->text(), QStringLiteral("Sviluppa"));
        QCOMPARE(opzione("optImporto", 9)->text(), QStringLiteral("200 euro"));
        QCOMPARE(opzione("optImporto", 8)->text(), QStringLiteral("50"));
        QCOMPARE(m_main->menu(QStringLiteral("menuOperazioni"))->title(), QStringLiteral("&Lavori"));
        QCOMPARE(m_main->pulsante(QStringLiteral("cmdCancella"))->text(), QStringLiteral("Cance&lla Sistema"));
        QVERIFY(!abilitato("cmdCalcolo"));
        QVERIFY(!abilitato("menuOperazioni"));
        QVERIFY(!abilitato("cmdModifiche"));
    }

    void clickTogglesACellAndItsLook() {
        clicca(6);
        QCOMPARE(m_corpo->pronostico.Quanti, 1);
        QCOMPARE(cella(6)->property("tag").toString(), QStringLiteral("1"));
        QVERIFY(cella(6)->styleSheet().contains(QStringLiteral("rgb(255,128,0)")));
        QCOMPARE(m_main->findChild<QLabel*>(QStringLiteral("labnumeri"))->text(),
                 QStringLiteral("Numeri in gioco [01]"));
        clicca(6);
        QCOMPARE(m_corpo->pronostico.Quanti, 0);
        QCOMPARE(cella(6)->property("tag").toString(), QStringLiteral("0"));
    }

    void sweepTogglesEachCellEnteredAndReentered() {
        trascina(0, {1, 2, 3});
        QCOMPARE(m_corpo->pronostico.Quanti, 4);
        for (int i = 0; i < 4; ++i)
            QVERIFY(m_corpo->Griglia[static_cast<size_t>(i)]);
        // Back over the same cells: each is toggled again, the one pressed on is left alone.
        trascina(13, {13, 3, 2, 12});
        QCOMPARE(m_corpo->Griglia[13], true);
        QCOMPARE(m_corpo->Griglia[3], false);
        QCOMPARE(m_corpo->Griglia[2], false);
        QCOMPARE(m_corpo->Griglia[12], true);
        // Leaving the grid and coming back into the same cell toggles it once more.
        trascina(40, {41, -1, 41});
        QCOMPARE(m_corpo->Griglia[41], false);
        QCOMPARE(m_corpo->pronostico.Quanti, 5);
    }

    void operationsFollowTheCountAndTheColumnLength() {
        scegliDa1A(9);
        QVERIFY(!abilitato("cmdCalcolo"));
        QCOMPARE(m_main->findChild<QLabel*>(QStringLiteral("lblIntegrale"))->text(), QStringLiteral("0"));
        clicca(9);
        QVERIFY(abilitato("cmdCalcolo"));
        QVERIFY(abilitato("menuOperazioni"));
        QCOMPARE(m_main->findChild<QLabel*>(QStringLiteral("lblIntegrale"))->text(), QStringLiteral("1"));
        clicca(9);
        QVERIFY(!abilitato("cmdCalcolo"));
        scegliDa1A(0);
        clicca(9);
        clicca(10);
        clicca(11); // 12 numbers
        QCOMPARE(m_main->findChild<QLabel*>(QStringLiteral("lblIntegrale"))->text(), QStringLiteral("66"));
        auto* hs = m_main->findChild<QScrollBar*>(QStringLiteral("hsLenCol"));
        hs->setValue(13);
        QCOMPARE(m_corpo->LenColonna, 13);
        QCOMPARE(m_main->findChild<QLabel*>(QStringLiteral("lbLenCol"))->text(), QStringLiteral("13"));
        QVERIFY(!abilitato("cmdCalcolo"));
        QCOMPARE(m_corpo->pronostico.Quanti, 12);
    }

    void stakeAndKindOfPlaySetTheCostInTheStatusLine() {
        opzione("optImporto", 3)->click();     // 2,5
        opzione("optTipoGiocata", 2)->click(); // Doppio ORO
        QCOMPARE(m_corpo->CostoColonna, 7.5f);
        scegliDa1A(12);
        sviluppa();
        QCOMPARE(pannello(2), QStringLiteral("66"));
        QCOMPARE(pannello(3), QStringLiteral("\u20AC 495,00"));
    }

    void developmentRunsOffTheWindowThreadThenLocks() {
        scegliDa1A(12);
        QSignalSpy spy(&m_main->operazioni().worker(), &frmCalcoloWorker::conclusa);
        QTest::mouseClick(m_main->pulsante(QStringLiteral("cmdCalcolo")), Qt::LeftButton);
        QVERIFY(!m_main->isEnabled());
        QVERIFY(m_main->operazioni().worker().finestra()->isVisible());
        QVERIFY(spy.wait(60000));
        QVERIFY(m_main->isEnabled());
        QVERIFY(!m_main->operazioni().worker().finestra()->isVisible());
        QCOMPARE(m_main->operazioni().worker().finestra()->colonneSistema(), 66.0);
        QCOMPARE(m_corpo->pronostico.NumColonne, 66);
        QCOMPARE(pannello(4), QStringLiteral("Integrale"));
        // The elapsed-time box, and the window locked for a finished system.
        QCOMPARE(m_dialogs->boxes.size(), size_t{1});
        QVERIFY(m_dialogs->boxes[0].text.find("Days 00:00:") != std::string::npos);
        QVERIFY(!abilitato("frameNumeri"));
        QVERIFY(!abilitato("cmdCalcolo"));
        QVERIFY(!abilitato("cmdCancella"));
        QVERIFY(abilitato("cmdModifiche"));
        QVERIFY(abilitato("menuMescola"));
        QCOMPARE(m_corpo->SistemaBloccato, -1);
    }

    void runThatKeepsNothingLeavesTheWindowUnlocked() {
        scegliDa1A(10);
        m_corpo->condizioni.CondSomma = Vero;
        m_corpo->condizioni.SommaMinMax = {1, 2};
        sviluppa();
        QCOMPARE(m_corpo->pronostico.NumColonne, 0);
        QVERIFY(abilitato("cmdCalcolo"));
        QVERIFY(abilitato("frameNumeri"));
        QVERIFY(!abilitato("cmdModifiche"));
    }

    void modificaSistemaAsksThenGivesUpTheColumnsOnly() {
        scegliDa1A(12);
        sviluppa();
        m_dialogs->boxes.clear();
        m_dialogs->setNextAnswer(false);
        QTest::mouseClick(m_main->pulsante(QStringLiteral("cmdModifiche")), Qt::LeftButton);
        QCOMPARE(m_dialogs->boxes.back().text, std::string("Modificare il sistema?"));
        QCOMPARE(m_corpo->pronostico.NumColonne, 66);
        m_dialogs->setNextAnswer(true);
        m_main->azione(QStringLiteral("menuModifiche"))->trigger();
        QCOMPARE(m_corpo->pronostico.NumColonne, 0);
        QCOMPARE(m_corpo->pronostico.Quanti, 12);
        QVERIFY(abilitato("cmdCalcolo"));
        QVERIFY(abilitato("frameNumeri"));
        QVERIFY(!abilitato("cmdModifiche"));
        QCOMPARE(pannello(2), QStringLiteral("0"));
    }

    void recomputeModeKeepsDevelopmentAvailable() {
        m_corpo->ModalitaRicalcolo = Vero;
        scegliDa1A(12);
        sviluppa();
        QVERIFY(abilitato("cmdCalcolo"));
        QVERIFY(!abilitato("frameNumeri"));
        m_corpo->condizioni.CondFisse = Vero;
        m_corpo->condizioni.TabFisse[12] = 1;
        m_corpo->condizioni.NumFisse = 1;
        sviluppa(); // narrows the 66 columns held to those holding 12
        QCOMPARE(m_corpo->pronostico.NumColonne, 55);
    }

    void stopAsksWithTheCountsAndKeepsWhatWasKept() {
        for (int i = 0; i < 90; ++i)
            clicca(i);
        m_main->findChild<QScrollBar*>(QStringLiteral("hsLenCol"))->setValue(25);
        // Only columns whose last two numbers are neighbours: about one in sixty is kept, each
        // candidate is tested on its own, and the run is far too long to end by itself.
        CondizioneDistanza ultimaCoppia;
        ultimaCoppia.NumPosizioni = 1;
        ultimaCoppia.Posizioni[1] = 24;
        ultimaCoppia.NumDistanzeMin = 1;
        ultimaCoppia.DistanzaMin[1] = Vero;
        ultimaCoppia.Stato = Vero;
        m_corpo->CondizioniDistanza.append(ultimaCoppia);
        QSignalSpy spy(&m_main->operazioni().worker(), &frmCalcoloWorker::conclusa);
        QTest::mouseClick(m_main->pulsante(QStringLiteral("cmdCalcolo")), Qt::LeftButton);
        frmCalcolo* progress = m_main->operazioni().worker().finestra();
        QCOMPARE(progress->findChild<QPushButton*>(QStringLiteral("cmdSvilAnnulla"))->text(),
                 QStringLiteral("&Ferma"));
        QCOMPARE(progress->findChild<QLabel*>(QStringLiteral("lblColonneSistema"))->text(),
                 QStringLiteral("Colonne sistema"));
        // The window thread stays free: the progress window shows the counts as they grow.
        QTRY_VERIFY_WITH_TIMEOUT(progress->colonneElaborate() > 0, 60000);
        const QString integrali =
            progress->findChild<QLabel*>(QStringLiteral("lblNumColIntegrali"))->text().trimmed();
        QVERIFY(integrali.startsWith(QStringLiteral("11.613.412.635.260.27")));
        m_dialogs->setNextAnswer(false);
        QTest::mouseClick(progress->findChild<QPushButton*>(QStringLiteral("cmdSvilAnnulla")),
                          Qt::LeftButton);
        QCOMPARE(m_dialogs->beeps, 1);
        const auto& question = m_dialogs->boxes.back();
        QVERIFY(question.question);
        QCOMPARE(question.title, std::string("Elaborazione in corso..."));
        QVERIFY(question.text.rfind("Colonne integrali " + integrali.toStdString() + "\nColonne elaborate ", 0) == 0);
        QVERIFY(question.text.find("\nInterrompere?") != std::string::npos);
        QVERIFY(m_main->operazioni().inCorso());
        m_dialogs->setNextAnswer(true);
        QTest::mouseClick(progress->findChild<QPushButton*>(QStringLiteral("cmdSvilAnnulla")),
                          Qt::LeftButton);
        QVERIFY(spy.wait(60000));
        QVERIFY(m_corpo->pronostico.NumColonne > 0);
        QVERIFY(m_corpo->pronostico.NumColonne < MaxColonne);
        const std::string& descrizione = m_corpo->pronostico.Descrizione;
        QVERIFY(descrizione.size() > 6 && descrizione.substr(descrizione.size() - 6) == " - ***");
        QCOMPARE(pannello(4), QString::fromStdString(descrizione));
    }

    void conditionSetThroughItsDialogNarrowsTheDevelopmentAndIsMarked() {
        scegliDa1A(12); // columns of ten: 78 less two numbers
        bool aperta = false;
        sulModale([&aperta](QWidget* w) {
            auto* somma = qobject_cast<frmSomma*>(w);
            QVERIFY(somma);
            aperta = true;
            elementoArray<QRadioButton>(*somma, QStringLiteral("optCondSomma"), 0)->click();
            somma->findChild<QLineEdit*>(QStringLiteral("meDa"))->setText(QStringLiteral("55"));
            somma->findChild<QLineEdit*>(QStringLiteral("meA"))->setText(QStringLiteral("57"));
            somma->close();
        });
        m_main->azione(QStringLiteral("menuSomma"))->trigger();
        QVERIFY(aperta);
        QVERIFY(m_main->azione(QStringLiteral("menuSomma"))->isChecked());
        QVERIFY(!m_main->azione(QStringLiteral("menuFisse"))->isChecked());
        sviluppa();
        // Left out pairs adding up to 21, 22 or 23: 9+12, 10+11, 10+12, 11+12.
        QCOMPARE(m_corpo->pronostico.NumColonne, 4);
        QCOMPARE(pannello(4), QStringLiteral("Condizionato"));
        // A new system takes the condition and its mark away.
        m_main->azione(QStringLiteral("menuNuovo"))->trigger();
        QVERIFY(!m_main->azione(QStringLiteral("menuSomma"))->isChecked());
    }

    void filterTableWindowOpensFromTheMenuAndItsMarkFollowsTheTable() {
        scegliDa1A(10);
        m_corpo->FiltriAND.append(test::Filtro({1, 2, 3}, 0b1110));
        bool aperta = false;
        sulModale([&aperta](QWidget* w) {
            auto* filtri = qobject_cast<frmFiltri*>(w);
            if (!filtri) return;
            aperta = filtri->tipoFiltro() == TipoFiltro::AND;
            filtri->close();
        });
        m_main->azione(QStringLiteral("menuColonnaFiltroAND"))->trigger();
        QVERIFY(aperta);
        QVERIFY(m_main->azione(QStringLiteral("menuColonnaFiltroAND"))->isChecked());
        QVERIFY(!m_main->azione(QStringLiteral("menuColonnaFiltroOR"))->isChecked());
    }

    void viewerOpensOnlyWhenColumnsAreHeld() {
        scegliDa1A(11);
        int aperte = 0;
        const auto chiudiVisualizza = [&aperte](QWidget* w) {
            if (!qobject_cast<frmVisualizza*>(w)) return;
            ++aperte;
            w->close();
        };
        sulModale(chiudiVisualizza);
        m_main->operazioni().visualizza(); // no columns: nothing opens
        QCoreApplication::processEvents();
        QCOMPARE(aperte, 0);
        sviluppa();
        sulModale(chiudiVisualizza);
        QTest::mouseClick(m_main->pulsante(QStringLiteral("cmdVisualizza")), Qt::LeftButton);
        QCOMPARE(aperte, 1);
    }

    void progressWindowShowsTheLimitAndItsCloseButtonAsksToStop() {
        RunControl control;
        frmCalcolo progress(m_main->ui(), control);
        progress.show();
        progress.mostraLimite(ProgressInfo{250, 100, 5'000'000, 4'200'000, 4'000'000});
        QCOMPARE(progress.findChild<QLabel*>(QStringLiteral("labAllarm"))->text(),
                 QStringLiteral("Superato il limite di colonne"));
        QCOMPARE(progress.findChild<QLabel*>(QStringLiteral("lblNumColSistema"))->text(),
                 QStringLiteral(" 4.000.000"));
        QCOMPARE(progress.findChild<QProgressBar*>(QStringLiteral("pb"))->value(), 100);
        // Closing the window is the stop button: asked, and refused on no.
        m_dialogs->setNextAnswer(false);
        QVERIFY(!progress.close());
        QVERIFY(!control.StopElaborazione);
        m_dialogs->setNextAnswer(true);
        QVERIFY(!progress.close());
        QVERIFY(control.StopElaborazione);
    }

    void settingsWindowFromTheMenuThenTheSettingsAreReadAgain() {
        bool aperta = false;
        const std::string ini = m_corpo->AppDir + "/dorvantaqvn.ini";
        sulModale([&aperta, ini](QWidget* w) {
            if (!qobject_cast<frmImpostazioni*>(w)) return;
            aperta = true;
            // The file changes while the window is open, as its own save would change it.
            std::ofstream(ini) << "[IMPOSTAZIONI]\nLINGUA=prova\nMODALITA' RICALCOLO=TRUE\n";
            w->close();
        });
        QCOMPARE(m_corpo->ModalitaRicalcolo, Falso);
        m_main->azione(QStringLiteral("menuImpostazioni"))->trigger();
        QVERIFY(aperta);
        QCOMPARE(m_corpo->ModalitaRicalcolo, Vero);
        QCOMPARE(m_main->pulsante(QStringLiteral("cmdCalcolo"))->text(), QStringLiteral("Sviluppa"));

        aperta = false;
        sulModale([&aperta](QWidget* w) {
            if (!qobject_cast<frmAbout*>(w)) return;
            aperta = true;
            w->close();
        });
        m_main->azione(QStringLiteral("menuinfo"))->trigger();
        QVERIFY(aperta);
    }

    void shuffleAsksAndKeepsTheSetOfColumnsAndOpenFolderShowsTheDataFolder() {
        scegliDa1A(13);
        sviluppa();
        const auto prima = test::StoredColumns(*m_corpo);
        m_dialogs->setNextAnswer(false);
        m_main->azione(QStringLiteral("menuMescola"))->trigger();
        QCOMPARE(m_dialogs->boxes.back().text, std::string("Condizionato"));
        QVERIFY(test::StoredColumns(*m_corpo) == prima);
        m_dialogs->setNextAnswer(true);
        m_main->azione(QStringLiteral("menuMescola"))->trigger();
        auto dopo = test::StoredColumns(*m_corpo);
        QVERIFY(dopo != prima);
        std::sort(dopo.begin(), dopo.end());
        QVERIFY(dopo == prima); // developed in lexicographic order, so sorted
        QVERIFY(abilitato("menuMescola"));

        m_main->azione(QStringLiteral("menuApriDirectory"))->trigger();
        QCOMPARE(m_dialogs->folders.back(), m_corpo->AppDir);
    }

    void closingIsRefusedDuringARunAndOtherwiseAsked() {
        m_dialogs->setNextAnswer(false);
        QVERIFY(!m_main->close());
        QCOMPARE(m_dialogs->boxes.back().text, std::string("Uscire?"));
        QVERIFY(m_main->isVisible());
        m_dialogs->setNextAnswer(true);
        QVERIFY(m_main->close());
        QCOMPARE(m_corpo->ChiusuraInCorso, Vero);
    }

    void forecastMenuOnlyWithoutASystem() {
        auto* popup = m_main->findChild<QMenu*>(QStringLiteral("menuPopup"));
        QTest::mouseClick(m_main->findChild<QLabel*>(QStringLiteral("labnumeri")), Qt::RightButton);
        QTRY_VERIFY(popup->isVisible());
        popup->hide();
        popup->findChild<QAction*>(QStringLiteral("mnuPronostico90Numeri"))->trigger();
        QCOMPARE(m_corpo->pronostico.Quanti, 90);
        popup->findChild<QAction*>(QStringLiteral("mnuCancellaPronostico"))->trigger();
        QCOMPARE(m_corpo->pronostico.Quanti, 0);
        scegliDa1A(10);
        sviluppa();
        QTest::mouseClick(m_main->findChild<QLabel*>(QStringLiteral("labnumeri")), Qt::RightButton);
        QTest::qWait(50);
        QVERIFY(!popup->isVisible());
    }

    void saveAndOpenThroughTheMenusRestoreTheSystem() {
        namespace fs = std::filesystem;
        scegli({5, 17, 22, 31, 44, 58, 61, 70, 83, 88, 90});
        m_corpo->condizioni.CondSomma = Vero;
        m_corpo->condizioni.SommaMinMax = {300, 600};
        CondizioneDistanza sempre; // no pair and no distance: always holds
        sempre.Stato = Vero;
        m_corpo->CondizioniDistanza.append(sempre);
        sviluppa();
        const int32_t kept = m_corpo->pronostico.NumColonne;
        QVERIFY(kept > 0);
        const std::string path = (fs::path(m_corpo->AppDir) / "sistemi" / "Prova.dvs").string();
        m_dialogs->setNextFileName(path);
        m_main->azione(QStringLiteral("menuSalvaConNome"))->trigger();
        QCOMPARE(m_dialogs->proposedNames.back(), std::string("nuovo.dvs"));
        QCOMPARE(m_dialogs->folders.back(), (fs::path(m_corpo->AppDir) / "sistemi").string());
        QVERIFY(fs::exists(path));
        QCOMPARE(pannello(1), QStringLiteral("prova.dvs"));

        m_main->azione(QStringLiteral("menuNuovo"))->trigger();
        QCOMPARE(m_corpo->pronostico.Quanti, 0);
        QCOMPARE(pannello(1), QStringLiteral("nuovo.dvs"));
        QVERIFY(abilitato("frameNumeri"));

        m_dialogs->setNextFileName(""); // cancelled: nothing happens
        m_main->azione(QStringLiteral("menuApri"))->trigger();
        QCOMPARE(m_corpo->pronostico.Quanti, 0);
        m_dialogs->setNextFileName(path);
        m_main->azione(QStringLiteral("menuApri"))->trigger();
        QCOMPARE(m_corpo->pronostico.Quanti, 11);
        QCOMPARE(m_corpo->pronostico.NumColonne, kept);
        QCOMPARE(cella(89)->property("tag").toString(), QStringLiteral("1"));
        QCOMPARE(cella(88)->property("tag").toString(), QStringLiteral("0"));
        QVERIFY(m_main->azione(QStringLiteral("menuSomma"))->isChecked());
        QVERIFY2(m_main->azione(QStringLiteral("menuDistanzaNumeri"))->isChecked(), "from the last record read");
        QVERIFY(!abilitato("frameNumeri"));
        QCOMPARE(pannello(1), QStringLiteral("prova.dvs"));
        QCOMPARE(pannello(2), QString::number(kept));

        // menuSalva writes under the current name again.
        fs::remove(path);
        m_main->azione(QStringLiteral("menuSalva"))->trigger();
        QVERIFY(fs::exists(path));
    }

    void aMissingFileOnTheCommandLineIsReportedAndLeavesAnEmptySystem() {
        scegliDa1A(12);
        m_dialogs->boxes.clear();
        m_main->file().apri("\"" + m_corpo->AppDir + "/sistemi/manca.dvs\"");
        QCOMPARE(m_dialogs->boxes.size(), size_t{1});
        QVERIFY(m_dialogs->boxes[0].text.rfind("Error ", 0) == 0);
        QVERIFY(m_dialogs->boxes[0].text.find("ApriFile") != std::string::npos);
        QCOMPARE(m_corpo->pronostico.NumColonne, 0);
        QVERIFY(m_main->isEnabled());
        QVERIFY(abilitato("frameNumeri"));
    }

    void exportAndImportColumnsThroughTheMenus() {
        namespace fs = std::filesystem;
        m_main->findChild<QScrollBar*>(QStringLiteral("hsLenCol"))->setValue(6);
        scegliDa1A(8);
        sviluppa();
        QCOMPARE(m_corpo->pronostico.NumColonne, 28);
        const std::string path = (fs::path(m_corpo->AppDir) / "txt" / "colonne.txt").string();
        m_dialogs->boxes.clear();
        m_dialogs->setNextFileName(path);
        m_main->azione(QStringLiteral("menuEsportaColonne"))->trigger();
        QCOMPARE(m_dialogs->proposedNames.back(), std::string("nuovo.txt"));
        QCOMPARE(m_dialogs->folders.back(), (fs::path(m_corpo->AppDir) / "txt").string());
        QCOMPARE(m_dialogs->boxes.back().text, "File " + path + " ok ");
        QVERIFY(m_main->centralWidget()->isEnabled());

        m_main->azione(QStringLiteral("menuNuovo"))->trigger();
        m_main->findChild<QScrollBar*>(QStringLiteral("hsLenCol"))->setValue(10);
        m_dialogs->setNextFileName(path);
        m_main->azione(QStringLiteral("menuImportaColonne"))->trigger();
        QCOMPARE(m_corpo->pronostico.NumColonne, 28);
        QCOMPARE(m_corpo->LenColonna, 6);
        QCOMPARE(m_main->findChild<QScrollBar*>(QStringLiteral("hsLenCol"))->value(), 6);
        QCOMPARE(m_corpo->pronostico.Quanti, 8);
        QCOMPARE(pannello(4), QStringLiteral("FILE TXT"));
        QVERIFY(!abilitato("frameNumeri"));
        QVERIFY(abilitato("cmdModifiche"));
    }
};

QTEST_MAIN(frmMAINTest)
#include "frmMAINTest.moc"
