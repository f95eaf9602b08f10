// The Ultimate window and the filter import on the offscreen platform, wired into the main window
// as at start-up.
#include "windows/frmUltimate.h"
#include "windows/frmImportFiltri.h"

#include "tests/prize/SupportoSpoglio.h"
#include "tests/windows/FinestraPrincipaleProva.h"
#include "windows/frmCalcolo.h"
#include "windows/frmFiltri.h"

#include <QMenu>
#include <QPlainTextEdit>

#include <gtest/gtest.h>

#include <random>

using namespace dv;

namespace {

// Days of five-minute draws, 20 numbers drawn from a fixed seed.
ArrayEstrazioni Archivio(int giorni, int perGiorno) {
    ArrayEstrazioni a(1);
    std::mt19937 rng(17);
    std::vector<int> numeri = test::Range(1, 90);
    for (int g = 1; g <= giorni; ++g)
        for (int c = 1; c <= perGiorno; ++c) {
            std::shuffle(numeri.begin(), numeri.end(), rng);
            a.push_back(test::Draw(QString::asprintf("%02d/06/2025", g).toStdString(), c,
                                   {numeri.begin(), numeri.begin() + 20}));
        }
    return a;
}

// A search stopped at its first step, as the window's stop gives it.
struct FermaAlPrimo : EngineObserver {
    RunControl* ctl;
    void progress(const ProgressInfo&) override { ctl->StopElaborazione = true; }
};

} // namespace

class FinestraUltimate : public ::testing::Test, protected test::FinestraPrincipaleProva {
protected:
    frmUltimate* m_ult = nullptr;

    QString risultato() { return test::Controllo<QPlainTextEdit>(*m_ult, "lbResult")->toPlainText(); }

    void SetUp() override {
        apriItaliano();
        CollegaUltimate(*m_main);
        m_ult = m_main->findChild<frmUltimate*>();
        ASSERT_TRUE(m_ult);
    }
    void TearDown() override { chiudi(); }

    // Runs the search of the window's kind and quantity; stop asks for a stop at once.
    void cerca(bool stop = false) {
        QSignalSpy fine(m_ult, &frmUltimate::calcoloConcluso);
        test::Controllo<QPushButton>(*m_ult, "cmdCalcolo")->click();
        EXPECT_FALSE(m_ult->isEnabled());
        EXPECT_FALSE(m_main->isEnabled());
        if (stop) {
            m_dialogs->setNextAnswer(true);
            m_ult->calcolo()->annulla();
        }
        ASSERT_TRUE(fine.wait(20000));
        EXPECT_TRUE(m_ult->isEnabled());
        EXPECT_TRUE(m_main->isEnabled());
        EXPECT_FALSE(m_ult->calcolo()->isVisible());
    }
};

TEST_F(FinestraUltimate, ValuesOfEachKindAndQuantity) {
    QAction* voce = m_main->azione(QStringLiteral("menuUltimate"));
    ASSERT_TRUE(voce && voce->isVisible());
    voce->trigger();
    const QLocale locale;
    EXPECT_EQ(test::Testi(*m_ult, "lbNumEstrazioni lbQta"), "171|1");
    EXPECT_EQ(test::Testi(*m_ult, "lbNumDecadimento"), locale.toString(-0.04860291578, 'f', 11));
    auto* quaterna = test::Controllo<QRadioButton>(*m_ult, "optTipoGiocata(2)");
    QTest::mouseClick(quaterna, Qt::LeftButton);
    EXPECT_EQ(m_ult->tipo(), 4);
    EXPECT_EQ(quaterna->palette().color(QPalette::Window), QColor(Qt::yellow));
    test::Controllo<QScrollBar>(*m_ult, "vsQta")->setValue(3);
    EXPECT_EQ(test::Testi(*m_ult, "lbNumEstrazioni"), locale.toString(7195));
    // Closed and opened again: loaded afresh.
    m_ult->close();
    voce->trigger();
    EXPECT_EQ(m_ult->tipo(), 2);
    EXPECT_EQ(test::Testi(*m_ult, "lbNumEstrazioni"), QStringLiteral("171"));
}

TEST_F(FinestraUltimate, AStoppedSearchShowsWhatItFoundAWholeOneWritesColumnsAndOverflowEndsInTheBox) {
    const ArrayEstrazioni a = Archivio(1, 40);
    test::ScriviArchivio(m_corpo->PathArchivio5Min, {a.begin() + 1, a.end()});
    m_corpo->pronostico.NumColonne = 3;
    m_ult->apri();
    const auto testo = [](const RisultatoUltimate& r) {
        return QString::fromStdString(TestoUltimate(r)).replace("\r\n", "\n");
    };
    cerca(true);
    RunControl ctl;
    FermaAlPrimo obs;
    obs.ctl = &ctl;
    const RisultatoUltimate fermata = UltimateCerca(a, 2, 171, ctl, obs);
    ASSERT_TRUE(fermata.interrotta);
    EXPECT_EQ(risultato(), testo(fermata));
    EXPECT_FALSE(risultato().isEmpty());

    cerca();
    RunControl libero;
    EngineObserver nessuno;
    const RisultatoUltimate intera = UltimateCerca(a, 2, 171, libero, nessuno);
    ASSERT_GT(intera.trovate(), 0);
    EXPECT_EQ(risultato(), testo(intera));
    EXPECT_EQ(m_corpo->Colonne.get(1, 1), intera.combinazione(0)[0]);
    EXPECT_EQ(m_corpo->pronostico.NumColonne, 3);

    // Forty draws leave far more than 32,767 terni.
    test::Controllo<QRadioButton>(*m_ult, "optTipoGiocata(1)")->click();
    cerca();
    ASSERT_FALSE(m_dialogs->boxes.empty());
    EXPECT_EQ(m_dialogs->boxes.back().text,
              "Error 6 (Overflow) in procedure cmdCalcolo_Click of Form frmUltimate");
}

// The filter window's button opens the import of its own kind; a file with a bad line is refused
// and the table kept, then the archive is imported with a ready-made range.
TEST_F(FinestraUltimate, FilterWindowImportsKeepingItsTableOnABadFileThenFromTheArchive) {
    m_corpo->mArrEstrazioni = Archivio(3, 100);
    m_corpo->TipoArchivio = Archivio5Minuti;
    m_corpo->LenColonna = 6;
    m_corpo->FiltriAND[1].Numeri[9] = 1;
    m_corpo->FiltriAND.setCount(1);
    m_corpo->FiltriOR[1].Numeri[5] = 1;
    m_corpo->FiltriOR.setCount(1);
    const std::string cattivo = m_dir->filePath("x.txt").toStdString();
    std::ofstream(cattivo) << "1 2 3\n4 y 6\n";
    frmFiltri filtri(*m_corpo, m_main->ui(), TipoFiltro::AND, m_main.get());
    filtri.setImporta(m_main->finestre().importaFiltri);
    bool vista = false;
    QTimer::singleShot(0, [&] {
        auto* f = qobject_cast<frmImportFiltri*>(QApplication::activeModalWidget());
        if (!f) return;
        vista = f->tipoFiltro() == TipoFiltro::AND;
        EXPECT_EQ(test::Testi(*f, "cmbAl"), "03/06/2025");
        EXPECT_FALSE(test::Controllo<QPushButton>(*f, "cmdImportaFiltri")->isEnabled());
        EXPECT_TRUE(test::Controllo<QLabel>(*f, "lbPresenze(7)")->isHidden());
        test::Controllo<QRadioButton>(*f, "optImportSource(0)")->click();
        m_dialogs->setNextFileName(cattivo);
        test::Controllo<QPushButton>(*f, "cmdImportaFiltri")->click();
        EXPECT_EQ(m_dialogs->folders.back(), PercorsoIn(m_corpo->AppDir, {"txt"}));
        test::Controllo<QPushButton>(*f, "cmdProcess")->click();
        EXPECT_NE(f->result(), QDialog::Accepted);
        EXPECT_EQ(m_corpo->FiltriAND[1].Numeri[9], 1);
        EXPECT_NE(m_dialogs->boxes.back().text.find("2: \"4 y 6\""), std::string::npos);

        test::Controllo<QRadioButton>(*f, "optImportSource(1)")->click();
        test::Clicca(test::Controllo<QLabel>(*f, "lbPresenze(0)"));
        test::Clicca(test::Controllo<QLabel>(*f, "lbPresenze(2)"));
        const auto voce = [f](const char* name) { f->menuPopup()->findChild<QAction*>(name)->trigger(); };
        voce("mnulast5days");
        EXPECT_EQ(test::Testi(*f, "cmbDal cmbConcAl"), "01/06/2025|288");
        voce("mnuCercaAmbo");
        EXPECT_EQ(test::Testi(*f, "cmbDal cmbConcDal"), "02/06/2025|44");
        // No to the question: nothing changes and the window stays.
        m_dialogs->setNextAnswer(false);
        test::Controllo<QPushButton>(*f, "cmdProcess")->click();
        EXPECT_EQ(m_corpo->FiltriAND[1].Numeri[9], 1);
        EXPECT_NE(f->result(), QDialog::Accepted);
        test::Controllo<QPushButton>(*f, "cmdProcess")->click();
    });
    test::Controllo<QPushButton>(filtri, "cmdLoadFiltri")->click();
    EXPECT_TRUE(vista);
    EXPECT_EQ(m_corpo->FiltriAND.count(), 157);
    EXPECT_EQ(m_corpo->FiltriAND[1].Presenze, 0b101);
    EXPECT_EQ(m_corpo->FiltriOR.count(), 1);
    EXPECT_EQ(test::Controllo<QLabel>(filtri, "lblTotFiltriON")->text(), QStringLiteral("157"));
}
