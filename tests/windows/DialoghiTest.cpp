// The condition dialogs and the forecast order driven as a user drives them, and what each writes
// into the state.
#include "windows/frmDistanzaMinima.h"
#include "windows/frmFisse.h"
#include "windows/frmOrdinaPronostico.h"
#include "windows/frmPari.h"
#include "windows/frmRidotto.h"
#include "windows/frmSomma.h"

#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"
#include "tests/windows/Controlli.h"

#include <QScrollBar>

#include <vector>

using namespace dv;
using test::Elemento;
using test::Testi;

namespace {

Corpo ConPronostico(const std::vector<int>& numeri, int len) {
    Corpo c;
    c.LenColonna = static_cast<int16_t>(len);
    test::SetForecast(c, numeri);
    return c;
}

// A click on the round mark of the first option of the array nome: the condition on.
void Accendi(QWidget& w, const char* nome) {
    QRadioButton* opt = Elemento<QRadioButton>(w, nome, 0);
    QTest::mouseClick(opt, Qt::LeftButton, {}, QPoint(6, opt->height() / 2));
}

void Mouse(QWidget* w, QEvent::Type type, QPoint pos, Qt::MouseButtons held) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent e(type, pos, w->mapToGlobal(pos), button, held, Qt::NoModifier);
    QApplication::sendEvent(w, &e);
}

// Presses on the first cell, moves with the button held over the others, releases on the last.
void Trascina(TabellaCelle& t, const std::vector<int>& celle) {
    const auto centro = [&t](int i) { return t.cella(i)->geometry().center(); };
    Mouse(&t, QEvent::MouseButtonPress, centro(celle.front()), Qt::LeftButton);
    for (size_t i = 1; i < celle.size(); ++i)
        Mouse(&t, QEvent::MouseMove, centro(celle[i]), Qt::LeftButton);
    Mouse(&t, QEvent::MouseButtonRelease, centro(celle.back()), Qt::NoButton);
}

} // namespace

class DialoghiTest : public QObject {
    Q_OBJECT

    test::FakeUi ui; // new for each test

private slots:
    void init() { ui = test::FakeUi(); }
    void sommaShowsItsLimitsWritesAtOnceAndABadRangeKeepsItOpen() {
        Corpo c = ConPronostico(test::Range(1, 12), 4);
        frmSomma w(c, ui);
        w.show();
        QCOMPARE(Testi(w, "labMin labMax meDa"), QString("10|42|10"));
        Accendi(w, "optCondSomma");
        QCOMPARE(c.condizioni.CondSomma, Vero); // at once, before the closing
        auto* meDa = w.findChild<QLineEdit*>("meDa");
        meDa->selectAll();
        QTest::keyClicks(meDa, "5");
        QVERIFY(!w.close()); // below the least sum: refused, the window stays
        QCOMPARE(ui.boxes.size(), size_t{1});
        QCOMPARE(ui.boxes[0].text, std::string("<0023>"));
    }

    void pariSweepSetsCountsOfEvenNumbers() {
        Corpo c = ConPronostico(test::Range(1, 10), 5);
        frmPari w(c, ui);
        w.show();
        QVERIFY(w.celle()->cella(5)->isVisible());
        QVERIFY(!w.celle()->cella(6)->isVisible());
        Accendi(w, "optCondizione");
        Trascina(*w.celle(), {0, 1, 2, 1}); // back over 1: entered again, toggles off
        w.close();
        QCOMPARE(c.condizioni.CondPari, Vero);
        for (int i = 0; i <= 5; ++i)
            QCOMPARE(c.condizioni.TabPari[static_cast<size_t>(i)], i == 0 || i == 2 ? Vero : Falso);
    }

    void fisseOnlyForecastNumbersUpToTheLimit() {
        Corpo c = ConPronostico({3, 8, 15, 16, 23, 42, 77}, 4);
        frmFisse w(c, ui);
        w.show();
        Accendi(w, "optCondFisse");
        Trascina(*w.celle(), {0, 1, 2});        // 1, 2, 3: only 3 is in the forecast
        Trascina(*w.celle(), {76, 41, 22, 15}); // the fourth goes past the limit of 3
        w.close();
        QCOMPARE(c.condizioni.NumFisse, uint8_t{3});
        QCOMPARE(c.condizioni.TabFisse[3] + c.condizioni.TabFisse[42] + c.condizioni.TabFisse[77], 3);
    }

    // The reduction closed last wins, with its warning, and turns the other off.
    void ridottoAndDistanzaMinimaTurnEachOtherOff() {
        Corpo c = ConPronostico(test::Range(1, 7), 3);
        c.distanzaMinima.CondDistanzaMinima = Vero;
        frmRidotto r(c, ui);
        r.show();
        QCOMPARE(r.valore()->barra()->maximum(), 3);
        Accendi(r, "optCond");
        QVERIFY(ui.boxes.empty()); // the warning waits for the closing
        r.valore()->barra()->setValue(1);
        r.close();
        QCOMPARE(c.distanzaMinima.CondDistanzaMinima, Falso);
        QCOMPARE(c.condizioni.ValRidotto, uint8_t{1});
        frmDistanzaMinima d(c, ui);
        d.show();
        Accendi(d, "optCond");
        d.valore()->barra()->setValue(3);
        d.close();
        QCOMPARE(c.condizioni.CondRidotto, Falso);
        QCOMPARE(c.distanzaMinima.ValDistanzaMinima, uint8_t{3});
        QCOMPARE(ui.boxes.size(), size_t{2});
        QCOMPARE(ui.boxes[0].text + ui.boxes[1].text, std::string("<0021><0005>"));
    }

    // A locked system's conditions are shown and cannot be changed; its forecast can still be put in
    // a random order, the one its seed gives.
    void lockedSystemIsShownReadOnlyButItsForecastCanBeShuffled() {
        Corpo c = ConPronostico(test::Range(11, 30), 4);
        c.condizioni.CondSomma = Vero;
        c.condizioni.TabPari[2] = Vero;
        c.SistemaBloccato = -1;
        frmSomma somma(c, ui);
        somma.show();
        QVERIFY(Elemento<QRadioButton>(somma, "optCondSomma", 0)->isChecked());
        QVERIFY(!Elemento<QRadioButton>(somma, "optCondSomma", 0)->isEnabled());
        QVERIFY(!somma.findChild<QLineEdit*>("meDa")->isEnabled());
        frmPari pari(c, ui);
        pari.show();
        Trascina(*pari.celle(), {1, 2});
        QCOMPARE(c.condizioni.TabPari[1], Falso);
        QVERIFY(ui.boxes.empty());

        Corpo atteso = c;
        OrdinePronostico logica(atteso);
        logica.casuale(99);
        logica.chiudi();
        frmOrdinaPronostico w(c, ui);
        w.show();
        QVERIFY(!w.findChild<QWidget*>("titleOrdinePronostico")->isEnabled());
        w.ordineCasuale(99);
        w.close();
        QCOMPARE(c.pronostico.Numeri, atteso.pronostico.Numeri);
    }

    void forecastOrderDraggedReachesNumeri() {
        Corpo c = ConPronostico({5, 10, 20, 40}, 2);
        frmOrdinaPronostico w(c, ui);
        w.show();
        TabellaCelle& t = *w.celle();
        QVERIFY(!t.cella(4)->isVisible());
        const auto centro = [&t](int i) { return t.cella(i)->geometry().center(); };
        Mouse(&t, QEvent::MouseButtonPress, centro(0), Qt::LeftButton);
        Mouse(&t, QEvent::MouseMove, centro(2), Qt::LeftButton);
        QCOMPARE(Testi(w, "l1"), QString("05"));
        Mouse(&t, QEvent::MouseMove, centro(3), Qt::LeftButton);
        Mouse(&t, QEvent::MouseButtonRelease, centro(3), Qt::NoButton);
        QCOMPARE(t.cella(0)->text() + t.cella(3)->text(), QString("4005"));
        QVERIFY(t.cella(3)->styleSheet().contains(QColor(255, 255, 0).name()));
        Trascina(t, {1, 1}); // onto itself: nothing
        w.close();
        QCOMPARE(c.pronostico.Numeri[0], uint8_t{40});
        QCOMPARE(c.pronostico.Numeri[1], uint8_t{10});
        QCOMPARE(c.pronostico.Numeri[3], uint8_t{5});
    }
};

QTEST_MAIN(DialoghiTest)
#include "DialoghiTest.moc"
