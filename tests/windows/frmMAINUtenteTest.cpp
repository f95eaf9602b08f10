// The main window as a user drives it: a change of language in the settings, saves that would
// replace another file, the keyboard, the progress window's live counts and the width of the
// dialogs against their titles.
#include "core/Cartelle.h"
#include "platform/ApplyLanguage.h"
#include "tests/windows/FinestraPrincipaleProva.h"
#include "windows/frmCalcolo.h"
#include "windows/frmCalcoloWorker.h"
#include "windows/frmImpostazioni.h"
#include "windows/frmMAIN.h"
#include "windows/frmMAINFile.h"
#include "windows/frmMAINOperazioni.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <filesystem>
#include <fstream>
#include <memory>

using namespace dv;
namespace fs = std::filesystem;

namespace {
const char* const Italiano = R"([Strings]
0001="Colonne integrali"
0002="Colonne elaborate"
0003="Colonne sistema"
0004="Interrompere?"
0042="Numeri in gioco"
0054="Modificare il sistema?"
0055="Attenzione"
0062="Integrale"
0220="it"
0221="."
0222=","
0223="Sostituire %1?"
0224="Condizioni forse incomplete"
0232="Cartella %1 non aperta"

[frmMAIN]
cmdCalcolo.Caption="Sviluppa"
labnumeri.Caption="Numeri in gioco [00]"
)";

const char* const Inglese = R"([Strings]
0001="Integral columns"
0002="Columns worked"
0003="System columns"
0004="Stop?"
0042="Numbers in play"
0062="Integral"
0220="en"
0221=","
0222="."

[frmMAIN]
cmdCalcolo.Caption="Develop"
labnumeri.Caption="Numbers in play [00]"
)";
} // namespace

class frmMAINUtenteTest : public QObject, test::FinestraPrincipaleProva {
    Q_OBJECT

    std::string sistemi(const char* name) { return (fs::path(m_corpo->AppDir) / "sistemi" / name).string(); }

private slots:
    void init() { apri({{"prova", Italiano}, {"altra", Inglese}}); }
    void cleanup() { chiudi(); }

    void languageChosenInTheSettingsKeepsCountsAndTheLock() {
        scegliDa1A(12);
        sviluppa();
        QVERIFY(!abilitato("cmdCalcolo"));
        QString duranteLaScelta;
        sulModale([this, &duranteLaScelta](QWidget* w) {
            auto* settings = qobject_cast<frmImpostazioni*>(w);
            if (!settings) return;
            auto* lingue = settings->findChild<QComboBox*>(QStringLiteral("cmbLingua"));
            lingue->setCurrentIndex(lingue->findText(QStringLiteral("ALTRA")));
            settings->cmbLingua_Click();
            duranteLaScelta = etichetta("labnumeri")->text();
            w->close();
        });
        m_main->azione(QStringLiteral("menuImpostazioni"))->trigger();
        QCOMPARE(duranteLaScelta, QStringLiteral("Numbers in play [12]"));
        // Closed without saving: the saved language is back, and so is every count.
        QCOMPARE(etichetta("labnumeri")->text(), QStringLiteral("Numeri in gioco [12]"));
        QCOMPARE(etichetta("lblIntegrale")->text(), QStringLiteral("66"));
        QCOMPARE(pannello(2), QStringLiteral("66"));
        // The locked system stays locked: the button does not develop the held columns again.
        QVERIFY(!abilitato("cmdCalcolo"));
        QVERIFY(!abilitato("menuCalcolo"));
        QVERIFY(abilitato("cmdModifiche"));
    }

    void saveAsksBeforeReplacingAFileThatIsNotTheSystemsOwn() {
        scegliDa1A(10);
        m_corpo->condizioni.CondSomma = Vero;
        m_corpo->FileCorrente = sistemi("prova1.dvs");
        m_main->azione(QStringLiteral("menuSalva"))->trigger();
        m_main->azione(QStringLiteral("menuSalva"))->trigger(); // its own file: no question
        QVERIFY(fs::exists(sistemi("prova1.dvs")));
        QVERIFY(m_dialogs->boxes.empty());
        const auto size = fs::file_size(sistemi("prova1.dvs"));

        const std::string txt = (fs::path(m_corpo->AppDir) / "txt" / "prova1.txt").string();
        std::ofstream(txt) << "1 2 3\n4 5 6\n";
        m_dialogs->setNextFileName(txt);
        m_main->azione(QStringLiteral("menuImportaColonne"))->trigger();
        m_dialogs->setNextAnswer(false);
        m_main->azione(QStringLiteral("menuSalva"))->trigger();
        QCOMPARE(m_dialogs->boxes.size(), size_t{1});
        QVERIFY(m_dialogs->boxes[0].question);
        QCOMPARE(m_dialogs->boxes[0].text, "Sostituire " + sistemi("prova1.dvs") + "?");
        QCOMPARE(fs::file_size(sistemi("prova1.dvs")), size);

        m_dialogs->setNextAnswer(true);
        m_main->azione(QStringLiteral("menuSalva"))->trigger();
        QVERIFY(fs::file_size(sistemi("prova1.dvs")) != size);
        m_main->azione(QStringLiteral("menuSalva"))->trigger(); // now the file last saved
        QCOMPARE(m_dialogs->boxes.size(), size_t{2});
    }

    void aFileWhoseConditionsAreCutShortIsFlaggedInTheStatusLineUntilANewSystem() {
        scegliDa1A(10);
        m_corpo->consecutivi = {0b110, Vero};
        m_dialogs->setNextFileName(sistemi("tagliato.dvs"));
        m_main->azione(QStringLiteral("menuSalvaConNome"))->trigger();
        fs::resize_file(sistemi("tagliato.dvs"), fs::file_size(sistemi("tagliato.dvs")) - 8);
        m_main->azione(QStringLiteral("menuNuovo"))->trigger();
        m_dialogs->setNextFileName(sistemi("tagliato.dvs"));
        m_main->azione(QStringLiteral("menuApri"))->trigger();
        QCOMPARE(m_corpo->pronostico.Quanti, 10);
        QLabel* avviso = etichetta("lblAvviso");
        QVERIFY(avviso->isVisible());
        QCOMPARE(avviso->text(), QStringLiteral("Condizioni forse incomplete"));
        QVERIFY(m_dialogs->boxes.empty());
        m_main->azione(QStringLiteral("menuNuovo"))->trigger();
        QVERIFY(!avviso->isVisible());
    }

    void openFolderSaysWhenNoFileBrowserCanShowIt() {
        m_dialogs->folderOpens = false;
        m_main->azione(QStringLiteral("menuApriDirectory"))->trigger();
        QCOMPARE(m_dialogs->boxes.size(), size_t{1});
        QCOMPARE(m_dialogs->boxes[0].text, "Cartella " + m_corpo->AppDir + " non aperta");
    }

    void figuresAreGroupedByTheLanguageInUse() {
        scegliDa1A(90);
        QCOMPARE(etichetta("lblIntegrale")->text(), QStringLiteral("5.720.645.481.903"));
        std::ofstream(fs::path(m_corpo->AppDir) / "dorvantaqvn.ini") << "[IMPOSTAZIONI]\nLINGUA=altra\n";
        sulModale([](QWidget* w) { w->close(); });
        m_main->azione(QStringLiteral("menuImpostazioni"))->trigger();
        QCOMPARE(etichetta("lblIntegrale")->text(), QStringLiteral("5,720,645,481,903"));
        QCOMPARE(pannello(3), QStringLiteral("\u20AC 0.00"));
    }

    void progressShowsLiveCountsPausesForTheQuestionAndEndsOnTheTotal() {
        // 17 numbers in columns of 6: 12,376 candidates, beyond the last of the 250 steps.
        m_main->findChild<QScrollBar*>(QStringLiteral("hsLenCol"))->setValue(6);
        scegliDa1A(17);
        sviluppa();
        frmCalcoloWorker& worker = m_main->operazioni().worker();
        QCOMPARE(worker.finestra()->findChild<QLabel*>(QStringLiteral("lblNumColElaborate"))->text(),
                 QStringLiteral(" 12.376"));

        // A long reduction: its first step is far away, its counts move all the same.
        m_main->azione(QStringLiteral("menuNuovo"))->trigger();
        m_main->findChild<QScrollBar*>(QStringLiteral("hsLenCol"))->setValue(10);
        scegliDa1A(90);
        m_corpo->distanzaMinima = {5, Vero};
        QSignalSpy spy(&worker, &frmCalcoloWorker::conclusa);
        m_main->operazioni().calcolo();
        frmCalcolo* progress = worker.finestra();
        QLabel* elaborate = progress->findChild<QLabel*>(QStringLiteral("lblNumColElaborate"));
        QTRY_VERIFY(progress->colonneElaborate() > 1000);
        const QString prima = elaborate->text();
        QTest::qWait(300);
        QVERIFY(elaborate->text() != prima);

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
        QVERIFY(m_dialogs->boxes.back().text.find(
                    "Colonne elaborate " + elaborate->text().trimmed().toStdString()) != std::string::npos);
        QTRY_VERIFY(ctl.counter > aperta); // "no": the run goes on
        m_dialogs->duringQuestion = nullptr;
        m_dialogs->setNextAnswer(true);
        QTest::mouseClick(progress->findChild<QPushButton*>(QStringLiteral("cmdSvilAnnulla")),
                          Qt::LeftButton);
        QVERIFY(spy.wait(60000));
        QVERIFY(m_corpo->pronostico.Descrizione.ends_with(" - ***"));
    }

    void qtsOwnTextsFollowTheLanguageInUse() {
        const auto si = [] { return QCoreApplication::translate("QPlatformTheme", "&Yes"); };
        QCOMPARE(si(), QStringLiteral("&S\u00EC"));
        QCOMPARE(QLocale().language(), QLocale::Italian);
        sulModale([](QWidget* w) {
            auto* settings = qobject_cast<frmImpostazioni*>(w);
            auto* lingue = settings->findChild<QComboBox*>(QStringLiteral("cmbLingua"));
            lingue->setCurrentIndex(lingue->findText(QStringLiteral("ALTRA")));
            settings->cmbLingua_Click();
            QCOMPARE(QCoreApplication::translate("QPlatformTheme", "&Yes"), QStringLiteral("&Yes"));
            w->close();
        });
        m_main->azione(QStringLiteral("menuImpostazioni"))->trigger();
        QCOMPARE(si(), QStringLiteral("&S\u00EC")); // closed unsaved: the saved language again
    }

    void theKeyboardReachesTheGridTheLengthAndEveryButton() {
        m_main->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_main.get()));
        auto* griglia = m_main->findChild<QWidget*>(QStringLiteral("frameNumeri"));
        griglia->setFocus();
        for (int key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Space})
            QTest::keyClick(griglia, static_cast<Qt::Key>(key));
        QVERIFY(m_corpo->Griglia[11]); // 12: one right and one row down from 1
        QVERIFY(elementoArray<QLabel>(*m_main, QStringLiteral("grnum"), 11)
                    ->styleSheet()
                    .contains(QStringLiteral("rgb(0,90,200)")));
        QTest::keyClick(griglia, Qt::Key_Return);
        QVERIFY(!m_corpo->Griglia[11]);
        scegliDa1A(10);

        QStringList raggiunti;
        for (int i = 0; i < 12; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            raggiunti << QApplication::focusWidget()->objectName();
        }
        for (const char* name :
             {"frameNumeri", "hsLenCol", "optTipoGiocata", "optImporto", "cmdCancella", "cmdCalcolo"})
            QVERIFY2(raggiunti.contains(QString::fromLatin1(name)), name);
    }

    void theMainWindowsButtonsHaveMnemonicsOfTheirOwnInBothLanguages() {
        for (const char* file : {"italiano.lng", "english.lng"}) {
            ApplyLanguage(*m_main, std::string(DV_SOURCE_DIR) + "/languages/" + file);
            QList<QChar> lettere;
            for (QAction* m : m_main->menuBar()->actions())
                if (const int at = m->text().indexOf(QLatin1Char('&')); at >= 0 && at + 1 < m->text().size())
                    lettere << m->text().at(at + 1).toLower();
            for (QPushButton* b : m_main->centralWidget()->findChildren<QPushButton*>()) {
                const int at = b->text().indexOf(QLatin1Char('&'));
                QVERIFY2(at >= 0, qPrintable(b->text()));
                const QChar c = b->text().at(at + 1).toLower();
                QVERIFY2(!lettere.contains(c), qPrintable(b->text()));
                lettere << c;
            }
        }
    }
};

QTEST_MAIN(frmMAINUtenteTest)
#include "frmMAINUtenteTest.moc"
