// The window of the filter tables, worked through its controls on the offscreen platform.
#include "windows/frmFiltri.h"

#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"
#include "tests/windows/Controlli.h"

#include <QFile>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

using namespace dv;
using dv::test::Clicca;
using dv::test::Controllo;
using dv::test::Elemento;
using dv::test::Testo;
using dv::test::Vai;

namespace {
// A Ui whose language file the test chooses.
struct UiConLingua : dv::test::FakeUi {
    std::string lingua;
    std::string languageFile() override { return lingua; }
};

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

private slots:
    void init() {
        m_corpo = std::make_unique<Corpo>();
        m_corpo->LenColonna = 6;
        dv::test::SetForecast(*m_corpo, dv::test::Range(1, 20));
        m_ui = UiConLingua();
    }

    void loadShowsTheKindTheForecastAndRecordOne() {
        m_corpo->FiltriOR.append(dv::test::Filtro({3, 4, 50}, 0b10));
        frmFiltri f(*m_corpo, m_ui, m_corpo->FiltriOR);
        QCOMPARE(f.tipoFiltro(), TipoFiltro::OR);
        QCOMPARE(f.windowTitle(), QString(" Colonne Filtro - OR"));
        QCOMPARE(Testo(f, "lblnFiltro"), QString("01"));
        QCOMPARE(Testo(f, "lblTotFiltri"), QString("150.000"));
        QCOMPARE(Testo(f, "lblTotFiltriON"), QString("01"));
        QCOMPARE(Testo(f, "lblTotFiltriOFF"), QString("149.999"));
        QCOMPARE(Testo(f, "lblNumSelezionati"), QString("2"));
        QCOMPARE(dv::test::Sfondo(Elemento(f, "labGriglia", 2)), Blu);
        QCOMPARE(dv::test::Sfondo(Elemento(f, "labGriglia", 4)), Bianco);
        QCOMPARE(dv::test::Sfondo(Elemento(f, "labGriglia", 49)), Grigio);
        QCOMPARE(dv::test::Sfondo(Elemento(f, "lbPresenze", 1)), Rosso);
        QVERIFY(Elemento<QRadioButton>(f, "optCond", 0)->isChecked());
        QVERIFY(!Elemento(f, "lbPresenze", 6)->isHidden());
        QVERIFY(Elemento(f, "lbPresenze", 7)->isHidden());
        QVERIFY(Controllo<QPushButton>(f, "cmdLoadFiltri")->isHidden());
        QCOMPARE(Controllo<QPushButton>(f, "cmdPrev2")->toolTip(), QString("Indietro di 10 pannelli"));
        QCOMPARE(frmFiltri(*m_corpo, m_ui, TipoFiltro::XOR).windowTitle(), QString(" Colonne Filtro - XOR"));
    }

    void languageTextsComeBeforeTheKindIsAppended() {
        QTemporaryDir dir;
        const QString lng = dir.filePath("english.lng");
        QFile file(lng);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[frmFiltri]\r\nfrmFiltri.Caption=\" Filter Columns\"\r\ncmdCancella.Caption=\"Clear\"\r\n"
                   "cmdNext2.ToolTipText=\"Forward 100 panels\"\r\nlbErrori(3).Caption=\"x3\"\r\n");
        file.close();
        m_ui.lingua = lng.toStdString();
        frmFiltri f(*m_corpo, m_ui, m_corpo->FiltriAND);
        QCOMPARE(f.windowTitle(), QString(" Filter Columns - AND"));
        QCOMPARE(Controllo<QPushButton>(f, "cmdCancella")->text(), QString("Clear"));
        QCOMPARE(Controllo<QPushButton>(f, "cmdNext2")->toolTip(), QString("Forward 100 panels"));
        QCOMPARE(Elemento(f, "lbErrori", 3)->text(), QString("x3"));
        QCOMPARE(Elemento(f, "lbErrori", 4)->text(), QString("4"));
    }

    void twoPanelsWithGapsAreFoundAtIndicesOneAndTwoAfterClosing() {
        frmFiltri f(*m_corpo, m_ui, m_corpo->FiltriAND);
        f.show();
        Vai(f, "cmdNext1", 2); // panel 3: content, left OFF
        Clicca(Elemento(f, "labGriglia", 12));
        Vai(f, "cmdNext1", 2); // panel 5: ON
        Clicca(Elemento(f, "labGriglia", 4));
        Clicca(Elemento(f, "labGriglia", 6));
        Clicca(Elemento(f, "labGriglia", 60)); // outside the forecast: nothing
        Clicca(Elemento(f, "lbPresenze", 0));
        Clicca(Elemento<QRadioButton>(f, "optCond", 0));
        QCOMPARE(Testo(f, "lblNumSelezionati"), QString("2"));
        QCOMPARE(Testo(f, "lblTotFiltriON"), QString("01"));
        QCOMPARE(Testo(f, "lblTotFiltriOFF"), QString("149.999"));
        dv::test::TastoTenuto(Controllo<QPushButton>(f, "cmdNext1"), Qt::Key_Right, 3); // held: to panel 9
        QCOMPARE(Testo(f, "lblnFiltro"), QString("09"));
        Clicca(Elemento(f, "labGriglia", 8));
        Clicca(Elemento(f, "lbPresenze", 1));
        Clicca(Elemento<QRadioButton>(f, "optCond", 0));
        Vai(f, "cmdNext1"); // panel 10: content, left OFF
        Clicca(Elemento(f, "labGriglia", 17));
        QCOMPARE(Testo(f, "lblTotFiltriON"), QString("02"));
        f.close();

        TabellaFiltri& t = m_corpo->FiltriAND;
        QCOMPARE(t.count(), 2);
        QCOMPARE(NumeriDi(t[1]), (std::vector<int>{5, 7}));
        QCOMPARE(t[1].Presenze, 1);
        QCOMPARE(t[1].Stato, Vero);
        QCOMPARE(NumeriDi(t[2]), (std::vector<int>{9}));
        QCOMPARE(t[2].Presenze, 2);
        std::vector<int> spenti;
        for (int i = 3; i <= t.stored(); ++i) {
            QCOMPARE(t[i].Stato, Falso);
            for (int n : NumeriDi(t[i])) spenti.push_back(n);
        }
        QCOMPARE(spenti, (std::vector<int>{13, 18}));

        frmFiltri ancora(*m_corpo, m_ui, m_corpo->FiltriAND);
        QCOMPARE(Testo(ancora, "lblTotFiltriON"), QString("02"));
        QCOMPARE(Testo(ancora, "lblNumSelezionati"), QString("2"));
    }

    void navigationKeepsWithinTheTable() {
        frmFiltri f(*m_corpo, m_ui, m_corpo->FiltriAND);
        Vai(f, "cmdNext1", 49);
        Vai(f, "cmdPrev2");
        QCOMPARE(Testo(f, "lblnFiltro"), QString("01"));
        Vai(f, "cmdNext2", 3);
        QCOMPARE(Testo(f, "lblnFiltro"), QString("301"));
        Vai(f, "cmdTOP");
        QCOMPARE(Testo(f, "lblnFiltro"), QString("150.000"));
        Vai(f, "cmdPrev1");
        Vai(f, "cmdNext2");
        QCOMPARE(Testo(f, "lblnFiltro"), QString("150.000"));
        dv::test::TastoTenuto(Controllo<QPushButton>(f, "cmdPrev2"), Qt::Key_Space, 2);
        QCOMPARE(Testo(f, "lblnFiltro"), QString("149.700"));
        Vai(f, "cmdBOTTOM");
        QCOMPARE(Testo(f, "lblnFiltro"), QString("01"));
        f.close();
        QVERIFY(m_corpo->FiltriAND.stored() < 2);
    }

    void aSweepTogglesEachLabelItCrossesOnce() {
        frmFiltri f(*m_corpo, m_ui, m_corpo->FiltriAND);
        f.show();
        QVERIFY(QTest::qWaitForWindowExposed(&f));
        Clicca(Elemento(f, "labGriglia", 1));
        dv::test::Trascina({Elemento(f, "labGriglia", 0), Elemento(f, "labGriglia", 1), Elemento(f, "labGriglia", 2),
                            Elemento(f, "labGriglia", 30), Elemento(f, "labGriglia", 3)});
        QCOMPARE(dv::test::Sfondo(Elemento(f, "labGriglia", 0)), Blu);
        QCOMPARE(dv::test::Sfondo(Elemento(f, "labGriglia", 1)), Bianco);
        QCOMPARE(dv::test::Sfondo(Elemento(f, "labGriglia", 2)), Blu);
        QCOMPARE(dv::test::Sfondo(Elemento(f, "labGriglia", 30)), Grigio);
        QCOMPARE(dv::test::Sfondo(Elemento(f, "labGriglia", 3)), Blu);
        QCOMPARE(Testo(f, "lblNumSelezionati"), QString("3"));
        dv::test::Trascina({Elemento(f, "lbPresenze", 2), Elemento(f, "lbPresenze", 3)});
        QCOMPARE(dv::test::Sfondo(Elemento(f, "lbPresenze", 3)), Rosso);
    }

    void clearingAPanelAndTheTable() {
        for (int i = 1; i <= 3; ++i) m_corpo->FiltriXOR.append(dv::test::Filtro({i}, 2));
        frmFiltri f(*m_corpo, m_ui, m_corpo->FiltriXOR);
        Vai(f, "cmdNext1", 5);
        Clicca(Controllo<QPushButton>(f, "cmdCancella")); // an OFF panel: the count still goes down
        QCOMPARE(Testo(f, "lblTotFiltriON"), QString("02"));
        Vai(f, "cmdBOTTOM");
        Clicca(Controllo<QPushButton>(f, "cmdCancella"));
        QCOMPARE(Testo(f, "lblTotFiltriON"), QString("01"));
        QVERIFY(Elemento<QRadioButton>(f, "optCond", 1)->isChecked());
        QCOMPARE(Testo(f, "lblNumSelezionati"), QString("0"));
        QCOMPARE(m_corpo->FiltriXOR[1].Stato, Vero);

        m_ui.texts = {{"0006", "Cancellare la tabella?"}, {"0007", "Sicuro?"}};
        m_ui.setNextAnswer(false);
        Clicca(Controllo<QPushButton>(f, "cmdCancellaTutto"));
        QCOMPARE(m_ui.boxes.back().text, std::string("Cancellare la tabella?\nSicuro?"));
        QCOMPARE(m_corpo->FiltriXOR.count(), 3);
        m_ui.setNextAnswer(true);
        Vai(f, "cmdNext1", 2);
        Clicca(Controllo<QPushButton>(f, "cmdCancellaTutto"));
        QCOMPARE(Testo(f, "lblnFiltro"), QString("01"));
        QCOMPARE(Testo(f, "lblTotFiltriON"), QString("00"));
        f.close();
        QCOMPARE(m_corpo->FiltriXOR.count(), 0);
        QCOMPARE(m_corpo->FiltriXOR.stored() < 2, true);
    }

    void aLockedSystemShowsItsFiltersAndChangesNothing() {
        m_corpo->FiltriAND.append(dv::test::Filtro({1, 2}, 2));
        m_corpo->FiltriAND.append(dv::test::Filtro({3, 70}, 2));
        m_corpo->SistemaBloccato = -1;
        frmFiltri f(*m_corpo, m_ui, m_corpo->FiltriAND);
        f.show();
        QVERIFY(!Controllo<QGroupBox>(f, "frameCondizione")->isEnabled());
        Clicca(Elemento(f, "labGriglia", 5));
        QCOMPARE(Testo(f, "lblNumSelezionati"), QString("2"));
        Vai(f, "cmdNext1");
        QCOMPARE(Testo(f, "lblnFiltro"), QString("02"));
        QCOMPARE(dv::test::Sfondo(Elemento(f, "labGriglia", 2)), Blu);
        f.close();
        QCOMPARE(m_corpo->FiltriAND.count(), 2);
        QCOMPARE(NumeriDi(m_corpo->FiltriAND[2]), (std::vector<int>{3, 70}));
    }

    void aFilterMadeInTheWindowChangesTheDevelopment() {
        dv::test::SetForecast(*m_corpo, dv::test::Range(1, 8));
        m_corpo->LenColonna = 2;
        frmFiltri f(*m_corpo, m_ui, m_corpo->FiltriAND);
        f.show();
        for (int i = 0; i < 5; ++i) Clicca(Elemento(f, "labGriglia", i)); // 1..5
        Clicca(Elemento(f, "lbPresenze", 0));                              // none of them
        Clicca(Elemento<QRadioButton>(f, "optCond", 0));
        f.close();

        QCOMPARE(dv::test::Sviluppa(*m_corpo), 3);
        QCOMPARE(dv::test::StoredColumns(*m_corpo), (std::vector<std::vector<int>>{{6, 7}, {6, 8}, {7, 8}}));
    }

private:
    std::unique_ptr<Corpo> m_corpo;
    UiConLingua m_ui;
};

QTEST_MAIN(frmFiltriTest)
#include "frmFiltriTest.moc"
