// The window of the number distance conditions, worked through its controls.
#include "windows/frmFiltriDistanzaNumeri.h"

#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"
#include "tests/windows/Controlli.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

using namespace dv;
using dv::test::Clicca;
using dv::test::Controllo;
using dv::test::Elemento;
using dv::test::Testo;
using dv::test::Vai;

class frmFiltriDistanzaNumeriTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_corpo = std::make_unique<Corpo>();
        m_corpo->LenColonna = 4;
        dv::test::SetForecast(*m_corpo, {3, 5, 12, 20, 33, 60});
        m_ui = dv::test::FakeUi();
    }

    void loadShowsTheLimitsOfTheForecastAndHidesWhatCannotOccur() {
        frmFiltriDistanzaNumeri f(*m_corpo, m_ui);
        QCOMPARE(f.windowTitle(), QString("Distanza Numeri"));
        QCOMPARE(Testo(f, "lblNumDistMin"), QString("02"));
        QCOMPARE(Testo(f, "lblNumDistMax"), QString("48"));
        QCOMPARE(Elemento(f, "lbPFromPTo", 3)->text(), QString("P03 - P04"));
        QVERIFY(!Elemento(f, "lbPFromPTo", 3)->isHidden());
        QVERIFY(Elemento(f, "lbPFromPTo", 4)->isHidden());
        for (const char* nome : {"lbDistanzaMin", "lbDistanzaMax"}) {
            QVERIFY(Elemento(f, nome, 1)->isHidden());
            QVERIFY(!Elemento(f, nome, 2)->isHidden());
            QVERIFY(!Elemento(f, nome, 48)->isHidden());
            QVERIFY(Elemento(f, nome, 49)->isHidden());
        }
        QCOMPARE(Testo(f, "lblTotFiltri"), QString("25"));
        QCOMPARE(Testo(f, "lblTotFiltriOFF"), QString("25"));
    }

    void panelsAreCompactedAtCloseAndTheLongStepIsFive() {
        frmFiltriDistanzaNumeri f(*m_corpo, m_ui);
        f.show();
        Vai(f, "cmdNext2"); // panel 6: left OFF
        Clicca(Elemento(f, "lbPFromPTo", 2));
        Clicca(Elemento(f, "lbDistanzaMax", 7));
        Vai(f, "cmdNext2", 3);
        Vai(f, "cmdNext1", 2);
        QCOMPARE(Testo(f, "lblnFiltro"), QString("23"));
        Vai(f, "cmdNext2");
        QCOMPARE(Testo(f, "lblnFiltro"), QString("25"));
        dv::test::Trascina({Elemento(f, "lbPFromPTo", 1), Elemento(f, "lbPFromPTo", 2)});
        Clicca(Elemento(f, "lbDistanzaMin", 2));
        Clicca(Elemento<QRadioButton>(f, "optCond", 0));
        QCOMPARE(dv::test::Sfondo(Elemento(f, "lbPFromPTo", 1)), QColor(0, 0, 255));
        QCOMPARE(dv::test::Sfondo(Elemento(f, "lbDistanzaMin", 2)), QColor(255, 0, 0));
        QCOMPARE(Testo(f, "lblTotFiltriON"), QString("01"));
        f.close();

        const TabellaDistanze& t = m_corpo->CondizioniDistanza;
        QCOMPARE(t.count(), 1);
        QCOMPARE(t[1].NumPosizioni, uint8_t{2});
        QCOMPARE(t[1].Posizioni[2], uint8_t{2});
        QCOMPARE(t[1].NumDistanzeMin, uint8_t{1});
        QCOMPARE(t[1].DistanzaMin[2], Vero);
        QCOMPARE(t[1].Stato, Vero);
        int spenti = 0;
        for (int i = 2; i <= t.stored(); ++i)
            if (t[i].NumPosizioni == 1 && t[i].Posizioni[1] == 2 && t[i].DistanzaMax[7] == Vero) ++spenti;
        QCOMPARE(spenti, 1);
    }

    void clearingAndTheLockedView() {
        CondizioneDistanza cd;
        cd.NumPosizioni = 1;
        cd.Posizioni[1] = 1;
        cd.Stato = Vero;
        m_corpo->CondizioniDistanza.append(cd);
        {
            frmFiltriDistanzaNumeri f(*m_corpo, m_ui);
            Clicca(Controllo<QPushButton>(f, "cmdCancella"));
            QCOMPARE(Testo(f, "lblTotFiltriON"), QString("00"));
            QCOMPARE(dv::test::Sfondo(Elemento(f, "lbPFromPTo", 1)), QColor(255, 255, 255));
            QCOMPARE(m_corpo->CondizioniDistanza[1].Stato, Vero);
            f.close();
            QCOMPARE(m_corpo->CondizioniDistanza.count(), 0);
        }
        m_corpo->CondizioniDistanza.clear();
        m_corpo->CondizioniDistanza.append(cd);
        m_corpo->SistemaBloccato = -1;
        frmFiltriDistanzaNumeri f(*m_corpo, m_ui);
        QVERIFY(!Controllo<QGroupBox>(f, "frameCondizione")->isEnabled());
        QCOMPARE(dv::test::Sfondo(Elemento(f, "lbPFromPTo", 1)), QColor(0, 0, 255));
        Vai(f, "cmdTOP");
        QCOMPARE(Testo(f, "lblnFiltro"), QString("25"));
        f.close();
        QCOMPARE(m_corpo->CondizioniDistanza.count(), 1);
        QCOMPARE(m_corpo->CondizioniDistanza.stored(), 1);
    }

    void aConditionMadeInTheWindowChangesTheDevelopment() {
        m_corpo->LenColonna = 3;
        dv::test::SetForecast(*m_corpo, dv::test::Range(1, 6));
        frmFiltriDistanzaNumeri f(*m_corpo, m_ui);
        f.show();
        // The first two numbers of a column are neighbours: 10 of the 20 columns.
        Clicca(Elemento(f, "lbPFromPTo", 1));
        Clicca(Elemento(f, "lbDistanzaMax", 1));
        Clicca(Elemento<QRadioButton>(f, "optCond", 0));
        f.close();

        QCOMPARE(dv::test::Sviluppa(*m_corpo), 10);
        for (const auto& col : dv::test::StoredColumns(*m_corpo)) QCOMPARE(col[1] - col[0], 1);
    }

private:
    std::unique_ptr<Corpo> m_corpo;
    dv::test::FakeUi m_ui;
};

QTEST_MAIN(frmFiltriDistanzaNumeriTest)
#include "frmFiltriDistanzaNumeriTest.moc"
