// The windows of the filter tables and of the number distance conditions, worked through their
// controls on the offscreen platform.
#include "windows/frmFiltri.h"
#include "windows/frmFiltriDistanzaNumeri.h"

#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"
#include "tests/windows/Controlli.h"

using namespace dv;
using dv::test::Clicca;
using dv::test::Controllo;
using dv::test::Elemento;
using dv::test::Testi;
using dv::test::Vai;

namespace {
const QColor Blu(0, 0, 255), Bianco(255, 255, 255), Grigio(0xE0, 0xE0, 0xE0), Rosso(255, 0, 0);

std::vector<int> NumeriDi(const ColonnaFiltro& r) {
    std::vector<int> v;
    for (int n = 1; n <= 90; ++n)
        if (r.Numeri[static_cast<size_t>(n)]) v.push_back(n);
    return v;
}
} // namespace

class frmFiltriTest : public QObject {
    Q_OBJECT

    void pronostico(const std::vector<int>& numeri, int len) {
        m_corpo->LenColonna = static_cast<int16_t>(len);
        dv::test::SetForecast(*m_corpo, numeri);
    }

private slots:
    void init() {
        m_corpo = std::make_unique<Corpo>();
        pronostico(dv::test::Range(1, 20), 6);
        m_ui = dv::test::FakeUi();
    }

    // A locked system's table is shown as it is, cannot be changed, and can be paged through.
    void loadShowsTheKindTheForecastAndRecordOneOfALockedSystem() {
        m_corpo->FiltriOR.append(dv::test::Filtro({3, 4, 50}, 0b10));
        m_corpo->SistemaBloccato = -1;
        frmFiltri f(*m_corpo, m_ui, m_corpo->FiltriOR);
        QCOMPARE(
            Testi(f, "frmFiltri lblnFiltro lblTotFiltri lblTotFiltriON lblTotFiltriOFF lblNumSelezionati"),
            QString(" Colonne Filtro - OR|01|150.000|01|149.999|2"));
        for (const auto& [i, colore] :
             std::vector<std::pair<int, QColor>>{{2, Blu}, {4, Bianco}, {49, Grigio}})
            QCOMPARE(Elemento(f, "labGriglia", i)->palette().color(QPalette::Window), colore);
        QCOMPARE(Elemento(f, "lbPresenze", 1)->palette().color(QPalette::Window), Rosso);
        QVERIFY(Elemento<QRadioButton>(f, "optCond", 0)->isChecked());
        QVERIFY(!Controllo<QGroupBox>(f, "frameCondizione")->isEnabled());
        Clicca(Elemento(f, "labGriglia", 5));
        QCOMPARE(Testi(f, "lblNumSelezionati"), QString("2"));
        QVERIFY(!Elemento(f, "lbPresenze", 6)->isHidden());
        QVERIFY(Elemento(f, "lbPresenze", 7)->isHidden());
        QVERIFY(Controllo<QPushButton>(f, "cmdLoadFiltri")->isHidden());
        // The steps keep within the table: past its end, past its start.
        Vai(f, "cmdNext2", 3);
        QCOMPARE(Testi(f, "lblnFiltro"), QString("301"));
        Vai(f, "cmdTOP");
        Vai(f, "cmdNext2");
        QCOMPARE(Testi(f, "lblnFiltro"), QString("150.000"));
        Vai(f, "cmdBOTTOM");
        Vai(f, "cmdPrev2");
        QCOMPARE(Testi(f, "lblnFiltro"), QString("01"));
        QCOMPARE(frmFiltri(*m_corpo, m_ui, TipoFiltro::XOR).windowTitle(), QString(" Colonne Filtro - XOR"));
    }

    void panelsMadeWithGapsAreCompactedAtClosingAndTheTableCleared() {
        frmFiltri f(*m_corpo, m_ui, m_corpo->FiltriAND);
        f.show();
        Vai(f, "cmdNext1", 2); // panel 3: content, left OFF
        Clicca(Elemento(f, "labGriglia", 12));
        Vai(f, "cmdNext1", 2); // panel 5: ON
        // A sweep toggles each label it enters, the one it comes back to again.
        dv::test::Trascina({Elemento(f, "labGriglia", 4), Elemento(f, "labGriglia", 5),
                            Elemento(f, "labGriglia", 6), Elemento(f, "labGriglia", 5)});
        Clicca(Elemento(f, "labGriglia", 60)); // outside the forecast: nothing
        Clicca(Elemento(f, "lbPresenze", 0));
        Clicca(Elemento<QRadioButton>(f, "optCond", 0));
        dv::test::TastoTenuto(Controllo<QPushButton>(f, "cmdNext1"), Qt::Key_Right, 3); // held: to panel 9
        QCOMPARE(Testi(f, "lblnFiltro"), QString("09"));
        Clicca(Elemento(f, "labGriglia", 8));
        Clicca(Elemento(f, "lbPresenze", 1));
        Clicca(Elemento<QRadioButton>(f, "optCond", 0));
        QCOMPARE(Testi(f, "lblTotFiltriON"), QString("02"));
        f.close();

        TabellaFiltri& t = m_corpo->FiltriAND;
        QCOMPARE(t.count(), 2);
        QCOMPARE(NumeriDi(t[1]), (std::vector<int>{5, 7}));
        QCOMPARE(t[1].Presenze, 1);
        QCOMPARE(NumeriDi(t[2]), (std::vector<int>{9}));
        QCOMPARE(t[2].Presenze, 2);
        // The OFF panels follow in table order, the empty ones included: panel 3 is fifth.
        QCOMPARE(t[5].Stato, Falso);
        QCOMPARE(NumeriDi(t[5]), (std::vector<int>{13}));

        // The panel cleared, then the whole table after its question.
        frmFiltri g(*m_corpo, m_ui, t);
        Clicca(Controllo<QPushButton>(g, "cmdCancella"));
        QCOMPARE(Testi(g, "lblTotFiltriON lblNumSelezionati"), QString("01|0"));
        m_ui.texts = {{"0006", "Cancellare la tabella?"}, {"0007", "Sicuro?"}};
        m_ui.setNextAnswer(false);
        Clicca(Controllo<QPushButton>(g, "cmdCancellaTutto"));
        QCOMPARE(m_ui.boxes.back().text, std::string("Cancellare la tabella?\nSicuro?"));
        QCOMPARE(t.count(), 2);
        m_ui.setNextAnswer(true);
        Vai(g, "cmdNext1", 2);
        Clicca(Controllo<QPushButton>(g, "cmdCancellaTutto"));
        QCOMPARE(Testi(g, "lblnFiltro lblTotFiltriON"), QString("01|00"));
        g.close();
        QCOMPARE(t.count(), 0);
    }

    // The distance window hides what the forecast cannot give, compacts its panels at closing, steps by
    // five and clears with its button.
    void distanceWindowFollowsTheForecastCompactsItsPanelsAndStepsByFive() {
        pronostico({3, 5, 12, 20, 33, 60}, 4);
        TabellaDistanze& t = m_corpo->CondizioniDistanza;
        {
            frmFiltriDistanzaNumeri f(*m_corpo, m_ui);
            f.show();
            QCOMPARE(Testi(f, "lblNumDistMin lblNumDistMax lbPFromPTo(3) lblTotFiltri"),
                     QString("02|48|P03 - P04|25"));
            QVERIFY(Elemento(f, "lbPFromPTo", 4)->isHidden());
            for (const char* nome : {"lbDistanzaMin", "lbDistanzaMax"}) {
                QVERIFY(Elemento(f, nome, 1)->isHidden());
                QVERIFY(!Elemento(f, nome, 2)->isHidden());
                QVERIFY(!Elemento(f, nome, 48)->isHidden());
                QVERIFY(Elemento(f, nome, 49)->isHidden());
            }
            Vai(f, "cmdNext2"); // panel 6: ON
            dv::test::Trascina({Elemento(f, "lbPFromPTo", 1), Elemento(f, "lbPFromPTo", 2)});
            Clicca(Elemento(f, "lbDistanzaMin", 2));
            Clicca(Elemento(f, "lbDistanzaMax", 40));
            Clicca(Elemento<QRadioButton>(f, "optCond", 0));
            QCOMPARE(Elemento(f, "lbDistanzaMin", 2)->palette().color(QPalette::Window), Rosso);
            f.close();
        }
        QCOMPARE(t.count(), 1);
        QCOMPARE(t[1].NumPosizioni, uint8_t{2});
        QCOMPARE(t[1].Posizioni[2], uint8_t{2});
        QCOMPARE(t[1].DistanzaMin[2], Vero);
        QCOMPARE(t[1].DistanzaMax[40], Vero);

        frmFiltriDistanzaNumeri f(*m_corpo, m_ui);
        QCOMPARE(Elemento(f, "lbPFromPTo", 1)->palette().color(QPalette::Window), Blu);
        Clicca(Controllo<QPushButton>(f, "cmdCancella"));
        QCOMPARE(Testi(f, "lblTotFiltriON"), QString("00"));
        Vai(f, "cmdNext2", 4);
        Vai(f, "cmdNext1", 2);
        QCOMPARE(Testi(f, "lblnFiltro"), QString("23"));
        Vai(f, "cmdNext2");
        QCOMPARE(Testi(f, "lblnFiltro"), QString("25"));
        f.close();
        QCOMPARE(t.count(), 0);
    }

private:
    std::unique_ptr<Corpo> m_corpo;
    dv::test::FakeUi m_ui;
};

QTEST_MAIN(frmFiltriTest)
#include "frmFiltriTest.moc"
