// The main window on the offscreen platform as a user drives it, with the conditions, the progress,
// the settings and the files reached from it.
#include "core/Sistema.h"
#include "tests/support/StateBuilder.h"
#include "tests/windows/FinestraPrincipaleProva.h"
#include "windows/frmAbout.h"
#include "windows/frmCalcolo.h"
#include "windows/frmFiltri.h"
#include "windows/frmImpostazioni.h"
#include "windows/frmMAINFile.h"
#include "windows/frmSomma.h"

#include <QMenu>
#include <QThread>

using namespace dv;
namespace fs = std::filesystem;

class frmMAINTest : public QObject, test::FinestraPrincipaleProva {
    Q_OBJECT

    QRadioButton* opzione(const char* name, int i) { return test::Elemento<QRadioButton>(*m_main, name, i); }
    QScrollBar* lunghezza() { return m_main->findChild<QScrollBar*>(QStringLiteral("hsLenCol")); }
    std::string cartella(const char* sub, const char* name = nullptr) {
        const fs::path p = fs::path(m_corpo->AppDir) / sub;
        return (name ? p / name : p).string();
    }
    // Presses on cell from, sweeps over the cells of path (-1: outside the grid) with the button
    // held, and releases.
    void trascina(int from, std::initializer_list<int> path) {
        std::vector<QWidget*> celle{cella(from)};
        for (int to : path)
            celle.push_back(to < 0 ? controllo("cmdCalcolo") : cella(to));
        test::Trascina(celle);
    }
    // Runs azione; true when it opened a modal window of type T, on which f ran before it closed.
    template <typename T, typename A, typename F = void (*)(T&)>
    bool apre(
        A azione, F f = [](T&) {}) {
        bool aperta = false;
        QTimer::singleShot(0, [&aperta, f] {
            QWidget* w = QApplication::activeModalWidget();
            if (auto* t = qobject_cast<T*>(w)) {
                aperta = true;
                f(*t);
            }
            if (w) w->close();
        });
        azione();
        QCoreApplication::processEvents();
        return aperta;
    }
    QString spuntati(std::initializer_list<const char*> names) { return abilitati(names, true); }
    static QString si() { return QCoreApplication::translate("QPlatformTheme", "&Yes"); }

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy)); }
    void init() {
        apri({{"italiano", test::LinguaSpedita("italiano")}, {"english", test::LinguaSpedita("english")}});
    }
    void cleanup() { chiudi(); }

    void gridTakesClicksSweepsAndKeysAndOperationsFollowTheCountAndTheColumnLength() {
        QCOMPARE(pannello(1) + "|" + pannello(2) + "|" + pannello(3),
                 QStringLiteral("nuovo.dvs|0|\u20AC 0,00"));
        QVERIFY(opzione("optImporto", 0)->isChecked() && opzione("optTipoGiocata", 0)->isChecked());
        m_main->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_main.get()));
        auto* numeri = controllo("frameNumeri");
        numeri->setFocus();
        for (int key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Space})
            QTest::keyClick(numeri, static_cast<Qt::Key>(key));
        QVERIFY(m_corpo->Griglia[11]); // 12: one right and one row down from 1
        QTest::keyClick(numeri, Qt::Key_Return);
        QVERIFY(!m_corpo->Griglia[11]);
        // The forecast's menu, on the numbers' title.
        auto* popup = m_main->findChild<QMenu*>(QStringLiteral("menuPopup"));
        QTest::mouseClick(etichetta("labnumeri"), Qt::RightButton);
        QTRY_VERIFY(popup->isVisible());
        popup->hide();

        clicca(6);
        QVERIFY(cella(6)->styleSheet().contains(QStringLiteral("rgb(255,128,0)")));
        clicca(6);
        QCOMPARE(cella(6)->property("tag").toString(), QStringLiteral("0"));
        trascina(0, {1, 2, 3});
        // Back over the same cells: each is toggled again, the one pressed on is left alone.
        trascina(13, {13, 3, 2, 12});
        QCOMPARE(griglia(14), QStringLiteral("11000000000011"));
        // Leaving the grid and coming back into the same cell toggles it once more.
        trascina(40, {41, -1, 41});
        QCOMPARE(m_corpo->Griglia[41], false);

        // Nine numbers fill no column of ten; the tenth does.
        for (int i = 20; i < 24; ++i)
            clicca(i);
        QCOMPARE(abilitati({"cmdCalcolo", "menuOperazioni", "cmdModifiche"}), QString());
        clicca(24);
        QCOMPARE(abilitati({"cmdCalcolo", "menuOperazioni"}), QStringLiteral("cmdCalcolo menuOperazioni"));
        QCOMPARE(etichetta("lblIntegrale")->text(), QStringLiteral("1"));
        QStringList raggiunti;
        for (int i = 0; i < 12; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            raggiunti << QApplication::focusWidget()->objectName();
        }
        for (const char* name :
             {"frameNumeri", "hsLenCol", "optTipoGiocata", "optImporto", "cmdCancella", "cmdCalcolo"})
            QVERIFY2(raggiunti.contains(QString::fromLatin1(name)), name);
        lunghezza()->setValue(11);
        QCOMPARE(etichetta("lbLenCol")->text(), QStringLiteral("11"));
        QVERIFY(!abilitato("cmdCalcolo"));

        // The filter table's entry opens the window of its own table, and its mark follows the table.
        m_corpo->FiltriAND.append(test::Filtro({1, 2, 3}, 0b1110));
        TipoFiltro tipo = TipoFiltro::OR;
        QVERIFY(apre<frmFiltri>([this] { menu("menuColonnaFiltroAND"); },
                                [&tipo](frmFiltri& f) { tipo = f.tipoFiltro(); }));
        QCOMPARE(tipo, TipoFiltro::AND);
        QCOMPARE(spuntati({"menuColonnaFiltroAND", "menuColonnaFiltroOR"}),
                 QStringLiteral("menuColonnaFiltroAND"));
    }

    void developmentRunsOffTheWindowThreadLocksAndModificaSistemaGivesUpTheColumnsOnly() {
        opzione("optImporto", 3)->click();     // 2,5
        opzione("optTipoGiocata", 2)->click(); // Doppio ORO
        scegliDa1A(12);
        QSignalSpy spy(&m_main->operazioni().worker(), &frmCalcoloWorker::conclusa);
        QTest::mouseClick(m_main->pulsante(QStringLiteral("cmdCalcolo")), Qt::LeftButton);
        QVERIFY(!m_main->isEnabled() && m_main->operazioni().worker().finestra()->isVisible());
        QVERIFY(spy.wait(60000));
        QVERIFY(m_main->isEnabled() && !m_main->operazioni().worker().finestra()->isVisible());
        // The status line: the count, the cost of the stake and kind of play, the kind of system.
        QCOMPARE(pannello(2) + "|" + pannello(3) + "|" + pannello(4),
                 QStringLiteral("66|\u20AC 495,00|Sistema integrale senza condizioni"));
        // The elapsed-time box, and the window locked for a finished system.
        QCOMPARE(m_dialogs->boxes.size(), size_t{1});
        QVERIFY(m_dialogs->boxes[0].text.find("Days 00:00:") != std::string::npos);
        QCOMPARE(abilitati({"frameNumeri", "cmdCalcolo", "cmdCancella", "cmdModifiche", "menuMescola"}),
                 QStringLiteral("cmdModifiche menuMescola"));

        // "Modifica Sistema" asks, then gives up the columns only.
        m_dialogs->setNextAnswer(false);
        QTest::mouseClick(m_main->pulsante(QStringLiteral("cmdModifiche")), Qt::LeftButton);
        QCOMPARE(m_dialogs->boxes.back().text,
                 std::string("Le colonne del sistema andranno perse. Vuoi modificare il sistema?"));
        QCOMPARE(m_corpo->pronostico.NumColonne, 66);
        m_dialogs->setNextAnswer(true);
        menu("menuModifiche");
        QCOMPARE(m_corpo->pronostico.Quanti, 12);
        QCOMPARE(abilitati({"cmdCalcolo", "frameNumeri", "cmdModifiche"}),
                 QStringLiteral("cmdCalcolo frameNumeri"));

        // A condition set through its dialog narrows the development and is marked.
        QVERIFY(apre<frmSomma>([this] { menu("menuSomma"); },
                               [](frmSomma& somma) {
                                   test::Elemento<QRadioButton>(somma, "optCondSomma", 0)->click();
                                   test::Controllo<QLineEdit>(somma, "meDa")->setText(QStringLiteral("55"));
                                   test::Controllo<QLineEdit>(somma, "meA")->setText(QStringLiteral("57"));
                               }));
        QCOMPARE(spuntati({"menuSomma", "menuFisse"}), QStringLiteral("menuSomma"));
        sviluppa();
        // Ten of twelve leave out a pair: sums 55..57 leave out 9+12, 10+11, 10+12 or 11+12.
        QCOMPARE(m_corpo->pronostico.NumColonne, 4);
        QCOMPARE(pannello(4), QStringLiteral("Sistema condizionato"));
        // A new system takes the condition and its mark away.
        menu("menuNuovo");
        QCOMPARE(spuntati({"menuSomma"}), QString());

        // A run that keeps nothing leaves the window unlocked; in the recompute mode so does one that kept.
        scegliDa1A(12);
        m_corpo->condizioni.CondSomma = Vero;
        m_corpo->condizioni.SommaMinMax = {1, 2};
        sviluppa();
        QCOMPARE(abilitati({"cmdCalcolo", "frameNumeri", "cmdModifiche"}),
                 QStringLiteral("cmdCalcolo frameNumeri"));
        m_corpo->condizioni.CondSomma = Falso;
        m_corpo->ModalitaRicalcolo = Vero;
        sviluppa();
        QCOMPARE(m_corpo->pronostico.NumColonne, 66);
        QCOMPARE(abilitati({"cmdCalcolo", "frameNumeri"}), QStringLiteral("cmdCalcolo"));
    }

    void stopAsksWithTheLiveCountsWhileTheRunWaitsAndClosingTheProgressWindowStopsToo() {
        // A long reduction: its first step is far away, its counts move all the same.
        scegliDa1A(90);
        m_corpo->distanzaMinima = {5, Vero};
        frmCalcoloWorker& worker = m_main->operazioni().worker();
        QSignalSpy spy(&worker, &frmCalcoloWorker::conclusa);
        QTest::mouseClick(m_main->pulsante(QStringLiteral("cmdCalcolo")), Qt::LeftButton);
        frmCalcolo* progress = worker.finestra();
        QLabel* elaborate = progress->findChild<QLabel*>(QStringLiteral("lblNumColElaborate"));
        QTRY_VERIFY(progress->colonneElaborate() > 1000);
        const QString prima = elaborate->text();
        QTRY_VERIFY(elaborate->text() != prima);

        // The run waits while the question is open, and the question shows the counts it holds.
        const RunControl& ctl = worker.controllo();
        double aperta = 0, dopo = 1;
        m_dialogs->duringQuestion = [&] {
            aperta = ctl.counter;
            QThread::msleep(200);
            dopo = ctl.counter;
        };
        m_dialogs->setNextAnswer(false);
        QTest::mouseClick(progress->findChild<QPushButton*>(QStringLiteral("cmdSvilAnnulla")),
                          Qt::LeftButton);
        QCOMPARE(dopo, aperta);
        QCOMPARE(m_dialogs->beeps, 1);
        const auto& question = m_dialogs->boxes.back();
        QCOMPARE(question.title, std::string("Elaborazione in corso..."));
        const QString testo = QString::fromStdString(question.text);
        QVERIFY(testo.startsWith("Colonne integrali 5.720.645.481.903\nColonne elaborate " +
                                 elaborate->text().trimmed() + "\nColonne del sistema "));
        QVERIFY(testo.endsWith("\nVuoi interrompere l'elaborazione del sistema?"));
        QTRY_VERIFY(ctl.counter > aperta); // "no": the run goes on
        progress->mostraLimite(ProgressInfo{250, 100, 5'000'000, 4'200'000, 4'000'000});
        QCOMPARE(test::Testi(*progress, "labAllarm lblNumColSistema"),
                 QStringLiteral("È stato superato il numero massimo di colonne del sistema.| 4.000.000"));
        // Closing the window is the stop button.
        m_dialogs->duringQuestion = nullptr;
        m_dialogs->setNextAnswer(true);
        QVERIFY(!progress->close());
        QVERIFY(ctl.StopElaborazione);
        QVERIFY(spy.wait(60000));
        QVERIFY(m_corpo->pronostico.NumColonne > 0);
        QVERIFY(m_corpo->pronostico.Descrizione.ends_with(" - ***"));
        QCOMPARE(pannello(4), QString::fromStdString(m_corpo->pronostico.Descrizione));
    }

    void aDevelopedSystemKeepsItsLockThroughTheLanguageShufflesWhenAskedAndClosingIsAsked() {
        scegliDa1A(12);
        sviluppa();
        // The other language chosen in the settings window, which is closed unsaved.
        QString duranteLaScelta, siDurante;
        QVERIFY(apre<frmImpostazioni>([this] { menu("menuImpostazioni"); },
                                      [&](frmImpostazioni& w) {
                                          auto* lingue = w.findChild<QComboBox*>(QStringLiteral("cmbLingua"));
                                          lingue->setCurrentIndex(
                                              lingue->findText(QStringLiteral("ENGLISH")));
                                          w.cmbLingua_Click();
                                          duranteLaScelta = etichetta("labnumeri")->text();
                                          siDurante = si();
                                      }));
        QCOMPARE(duranteLaScelta, QStringLiteral("Numbers in play [12]"));
        QCOMPARE(siDurante, QStringLiteral("&Yes")); // Qt's own texts follow the language
        // Closed without saving: the saved language is back, and so is every count.
        QCOMPARE(si(), QStringLiteral("&S\u00EC"));
        QCOMPARE(test::Testi(*m_main, "labnumeri lblIntegrale"), QStringLiteral("Numeri in gioco [12]|66"));
        // The locked system stays locked: the button does not develop the held columns again, and
        // the forecast's menu is not offered.
        QCOMPARE(abilitati({"cmdCalcolo", "menuCalcolo", "cmdModifiche"}), QStringLiteral("cmdModifiche"));
        QTest::mouseClick(etichetta("labnumeri"), Qt::RightButton);
        QTest::qWait(50);
        QVERIFY(!m_main->findChild<QMenu*>(QStringLiteral("menuPopup"))->isVisible());

        const auto prima = test::StoredColumns(*m_corpo);
        m_dialogs->setNextAnswer(false);
        menu("menuMescola");
        QCOMPARE(m_dialogs->boxes.back().text, std::string("Sistema condizionato"));
        QVERIFY(test::StoredColumns(*m_corpo) == prima);
        m_dialogs->setNextAnswer(true);
        menu("menuMescola");
        QVERIFY(test::StoredColumns(*m_corpo) != prima);

        menu("menuApriDirectory");
        QCOMPARE(m_dialogs->folders.back(), m_corpo->AppDir);
        m_dialogs->folderOpens = false; // no file browser can show it
        menu("menuApriDirectory");
        QCOMPARE(m_dialogs->boxes.back().text, "Impossibile aprire la cartella " + m_corpo->AppDir +
                                                   ": non c'è un programma per sfogliare i file.");
        m_dialogs->setNextAnswer(false);
        QVERIFY(!m_main->close());
        QCOMPARE(m_dialogs->boxes.back().text, std::string("Vuoi uscire dal programma?"));

        // The file changes while the window is open, as its own save would change it.
        const std::string ini = m_corpo->AppDir + "/dorvantaqvn.ini";
        QVERIFY(apre<frmImpostazioni>([this] { menu("menuImpostazioni"); },
                                      [ini](frmImpostazioni&) {
                                          std::ofstream(ini)
                                              << "[IMPOSTAZIONI]\nLINGUA=english\nMODALITA' RICALCOLO=TRUE\n";
                                      }));
        QCOMPARE(m_corpo->ModalitaRicalcolo, Vero);
        QCOMPARE(test::Testi(*m_main, "cmdCalcolo"), QStringLiteral("&Develop System"));
        QCOMPARE(pannello(3), QStringLiteral("\u20AC 66.00"));
        QVERIFY(apre<frmAbout>([this] { menu("menuinfo"); }));
        QVERIFY(m_main->close());
        QCOMPARE(m_corpo->ChiusuraInCorso, Vero);
    }

    void saveOpenExportAndImportThroughTheMenusRestoreTheSystem() {
        for (int n : {5, 17, 22, 31, 44, 58, 61, 70, 83, 88, 90})
            clicca(n - 1);
        m_corpo->condizioni.CondSomma = Vero;
        m_corpo->condizioni.SommaMinMax = {300, 600};
        CondizioneDistanza sempre; // no pair and no distance: always holds
        sempre.Stato = Vero;
        m_corpo->CondizioniDistanza.append(sempre);
        sviluppa();
        // The progress window ends on the count of all candidates, short of any step.
        QCOMPARE(test::Testi(*m_main->operazioni().worker().finestra(), "lblNumColElaborate"),
                 QStringLiteral(" 11"));
        const int32_t kept = m_corpo->pronostico.NumColonne;
        QVERIFY(kept > 0);
        const std::string path = cartella("sistemi", "Prova.dvs"), txt = cartella("txt", "colonne.txt");
        m_dialogs->setNextFileName(path);
        menu("menuSalvaConNome");
        QCOMPARE(m_dialogs->folders.back(), cartella("sistemi"));
        m_dialogs->setNextFileName(txt);
        menu("menuEsportaColonne");
        QCOMPARE(m_dialogs->folders.back(), cartella("txt"));
        QCOMPARE(m_dialogs->boxes.back().text, "File " + txt + " ok ");
        menu("menuNuovo");
        QCOMPARE(pannello(1), QStringLiteral("nuovo.dvs"));

        m_dialogs->setNextFileName(""); // cancelled: nothing happens
        menu("menuApri");
        QCOMPARE(m_corpo->pronostico.Quanti, 0);
        m_dialogs->setNextFileName(path);
        menu("menuApri");
        QCOMPARE(m_corpo->pronostico.Quanti, 11);
        QCOMPARE(cella(89)->property("tag").toString(), QStringLiteral("1"));
        QCOMPARE(spuntati({"menuSomma", "menuDistanzaNumeri"}), // the second from the last record read
                 QStringLiteral("menuSomma menuDistanzaNumeri"));
        QVERIFY(!abilitato("frameNumeri"));
        QCOMPARE(pannello(1) + "|" + pannello(2), "prova.dvs|" + QString::number(kept));
        // menuSalva writes under the current name again.
        fs::remove(path);
        menu("menuSalva");
        QVERIFY(fs::exists(path));

        // The columns imported bring their length.
        menu("menuNuovo");
        lunghezza()->setValue(6);
        m_dialogs->setNextFileName(txt);
        menu("menuImportaColonne");
        QCOMPARE(m_corpo->pronostico.NumColonne, kept);
        QCOMPARE(lunghezza()->value(), 10);
        QCOMPARE(pannello(4), QStringLiteral("FILE TXT"));
        QCOMPARE(abilitati({"frameNumeri", "cmdModifiche"}), QStringLiteral("cmdModifiche"));
    }

    // Saving asks before replacing a file that is not the system's own; a file cut short in its
    // conditions is flagged in the status line until a new system; a missing file named on the
    // command line gets its box and leaves an empty system.
    void savingAsksBeforeReplacingAnotherFileAndBrokenFilesAreReported() {
        const std::string dvs = cartella("sistemi", "prova1.dvs");
        scegliDa1A(10);
        m_corpo->consecutivi = {0b110, Vero};
        m_corpo->FileCorrente = dvs;
        menu("menuSalva");
        menu("menuSalva"); // its own file: no question
        QVERIFY(m_dialogs->boxes.empty());
        const auto size = fs::file_size(dvs);
        const std::string tagliato = cartella("sistemi", "tagliato.dvs");
        fs::copy_file(dvs, tagliato);
        fs::resize_file(tagliato, size - 8);

        const std::string txt = cartella("txt", "prova1.txt");
        std::ofstream(txt) << "1 2 3\n4 5 6\n";
        m_dialogs->setNextFileName(txt);
        menu("menuImportaColonne");
        m_dialogs->setNextAnswer(false);
        menu("menuSalva");
        QCOMPARE(m_dialogs->boxes.size(), size_t{1});
        QCOMPARE(m_dialogs->boxes[0].text,
                 "Il file " + dvs +
                     " esiste già e non è quello aperto o salvato per ultimo. Vuoi sostituirlo?");
        QCOMPARE(fs::file_size(dvs), size);
        m_dialogs->setNextAnswer(true);
        menu("menuSalva");
        QVERIFY(fs::file_size(dvs) != size);
        menu("menuSalva"); // now the file last saved
        QCOMPARE(m_dialogs->boxes.size(), size_t{2});

        menu("menuNuovo");
        m_dialogs->setNextFileName(tagliato);
        menu("menuApri");
        QLabel* avviso = etichetta("lblAvviso");
        QVERIFY(avviso->isVisible());
        QCOMPARE(
            avviso->text(),
            QStringLiteral(
                "Le condizioni del file potrebbero essere incomplete: il file finisce prima del previsto."));
        QCOMPARE(m_dialogs->boxes.size(), size_t{2});
        menu("menuNuovo");
        QVERIFY(!avviso->isVisible());

        m_main->file().apri("\"" + cartella("sistemi", "manca.dvs") + "\"");
        QCOMPARE(m_dialogs->boxes.size(), size_t{3});
        QVERIFY(m_dialogs->boxes[2].text.rfind("Error ", 0) == 0);
        QVERIFY(m_dialogs->boxes[2].text.find("ApriFile") != std::string::npos);
        QCOMPARE(m_corpo->pronostico.NumColonne, 0);
        QVERIFY(abilitato("frameNumeri"));
    }
};

QTEST_MAIN(frmMAINTest)
#include "frmMAINTest.moc"
