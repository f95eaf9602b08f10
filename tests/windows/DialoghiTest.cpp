// The condition dialogs, the viewer and the forecast order driven as a user drives them: options
// clicked, boxes typed into, cells pressed and swept, windows closed; then a development shows
// that the conditions set through each window change what it keeps.
#include "core/Avvio.h"
#include "core/Engine.h"
#include "windows/frmConsecutivi.h"
#include "windows/frmDistanzaMinima.h"
#include "windows/frmFisse.h"
#include "windows/frmOrdinaPronostico.h"
#include "windows/frmPari.h"
#include "windows/frmRidotto.h"
#include "windows/frmSomma.h"
#include "windows/frmVisualizza.h"

#include "platform/ApplyLanguage.h"
#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>

#include <functional>
#include <vector>

using namespace dv;

namespace {

// Every column of length len of the forecast, in order, for the oracle of a development.
void OgniColonna(const std::vector<int>& numeri, int len,
                 const std::function<void(const std::vector<int>&)>& f) {
    std::vector<int> col;
    std::function<void(size_t)> scegli = [&](size_t da) {
        if (static_cast<int>(col.size()) == len) return f(col);
        for (size_t i = da; i < numeri.size(); ++i) {
            col.push_back(numeri[i]);
            scegli(i + 1);
            col.pop_back();
        }
    };
    scegli(0);
}

int32_t Sviluppa(Corpo& c) {
    PreparaSviluppo(c);
    RunControl ctl;
    EngineObserver obs;
    return SviluppaIntegrale(c, c.pronostico.Quanti, c.pronostico.Numeri.data(), ctl, obs, "").kept;
}

Corpo ConPronostico(const std::vector<int>& numeri, int len) {
    Corpo c;
    c.LenColonna = static_cast<int16_t>(len);
    test::SetForecast(c, numeri);
    return c;
}

QRadioButton* Opzione(const QWidget& w, const char* nome, int index) {
    return elementoArray<QRadioButton>(w, QString::fromLatin1(nome), index);
}

// A click on the round mark of an option.
void Clicca(QRadioButton* opt) {
    QTest::mouseClick(opt, Qt::LeftButton, {}, QPoint(6, opt->height() / 2));
}

QPoint Centro(const TabellaCelle& t, int index) {
    return t.cella(index)->geometry().center();
}

void Mouse(QWidget* w, QEvent::Type type, QPoint pos, Qt::MouseButtons held) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent e(type, pos, w->mapToGlobal(pos), button, held, Qt::NoModifier);
    QApplication::sendEvent(w, &e);
}

// Presses on the first cell, moves with the button held over the others, releases on the last.
void Trascina(TabellaCelle& t, const std::vector<int>& celle) {
    Mouse(&t, QEvent::MouseButtonPress, Centro(t, celle.front()), Qt::LeftButton);
    for (size_t i = 1; i < celle.size(); ++i)
        Mouse(&t, QEvent::MouseMove, Centro(t, celle[i]), Qt::LeftButton);
    Mouse(&t, QEvent::MouseButtonRelease, Centro(t, celle.back()), Qt::NoButton);
}

// A Ui that names the English language file.
struct UiInglese : test::FakeUi {
    std::string languageFile() override { return DV_SOURCE_DIR "/languages/english.lng"; }
};

bool Acceso(const TabellaCelle& t, int index) {
    return t.cella(index)->property("tag").toString() == "1";
}

} // namespace

class DialoghiTest : public QObject {
    Q_OBJECT

private slots:
    void sommaRangeSetInTheWindowLimitsTheDevelopment() {
        Corpo c = ConPronostico(test::Range(1, 12), 4);
        test::FakeUi ui;
        {
            frmSomma w(c, ui);
            w.show();
            QCOMPARE(w.findChild<QLabel*>("labMin")->text(), QString("10"));
            QCOMPARE(w.findChild<QLabel*>("labMax")->text(), QString("42"));
            QCOMPARE(w.findChild<QLineEdit*>("meDa")->text(), QString("10"));
            Clicca(Opzione(w, "optCondSomma", 0));
            QCOMPARE(c.condizioni.CondSomma, Vero); // at once, before the closing
            auto* meDa = w.findChild<QLineEdit*>("meDa");
            auto* meA = w.findChild<QLineEdit*>("meA");
            meDa->selectAll();
            QTest::keyClicks(meDa, "20");
            meA->selectAll();
            QTest::keyClicks(meA, "24");
            QVERIFY(w.close());
        }
        QVERIFY(ui.boxes.empty());
        int atteso = 0;
        OgniColonna(test::Range(1, 12), 4, [&](const std::vector<int>& col) {
            const int s = col[0] + col[1] + col[2] + col[3];
            atteso += s >= 20 && s <= 24;
        });
        QCOMPARE(Sviluppa(c), atteso);
    }

    void sommaRefusesABadRangeAndStaysOpen() {
        Corpo c = ConPronostico(test::Range(1, 12), 4);
        test::FakeUi ui;
        frmSomma w(c, ui);
        w.show();
        auto* meDa = w.findChild<QLineEdit*>("meDa");
        meDa->setText("5");
        QVERIFY(!w.close());
        QVERIFY(w.isVisible());
        QCOMPARE(ui.boxes.size(), size_t{1});
        QCOMPARE(ui.boxes[0].text, std::string("<0023>"));
        QCOMPARE(c.condizioni.SommaMinMax[0], int16_t{5}); // written although refused
        meDa->setText("12");
        QVERIFY(w.close());
    }

    void pariSweepSetsCountsOfEvenNumbers() {
        Corpo c = ConPronostico(test::Range(1, 10), 5);
        test::FakeUi ui;
        {
            frmPari w(c, ui);
            w.show();
            QVERIFY(w.celle()->cella(5)->isVisible());
            QVERIFY(!w.celle()->cella(6)->isVisible());
            Clicca(Opzione(w, "optCondizione", 0));
            Trascina(*w.celle(), {0, 1, 2, 1}); // back over 1: entered again, toggles off
            QVERIFY(Acceso(*w.celle(), 0));
            QVERIFY(!Acceso(*w.celle(), 1));
            QCOMPARE(c.condizioni.TabPari[2], Vero);
            w.close();
        }
        int atteso = 0;
        OgniColonna(test::Range(1, 10), 5, [&](const std::vector<int>& col) {
            int pari = 0;
            for (int n : col)
                pari += n % 2 == 0;
            atteso += pari == 0 || pari == 2;
        });
        QCOMPARE(Sviluppa(c), atteso);
    }

    void fisseOnlyForecastNumbersAndTheDevelopmentKeepsThem() {
        Corpo c = ConPronostico({3, 8, 15, 16, 23, 42, 77}, 4);
        test::FakeUi ui;
        {
            frmFisse w(c, ui);
            w.show();
            Clicca(Opzione(w, "optCondFisse", 0));
            Trascina(*w.celle(), {0, 1, 2}); // 1, 2, 3: only 3 is in the forecast
            QVERIFY(!Acceso(*w.celle(), 0));
            QVERIFY(Acceso(*w.celle(), 2));
            Trascina(*w.celle(), {76, 41, 22, 15}); // the fourth goes past the limit of 3
            QVERIFY(!Acceso(*w.celle(), 15));
            QCOMPARE(w.findChild<QLabel*>("l1")->text(), QString("3"));
            w.close();
        }
        QCOMPARE(c.condizioni.NumFisse, uint8_t{3});
        QCOMPARE(Sviluppa(c), 4); // three fixed numbers and one of the other four
        for (const auto& col : test::StoredColumns(c)) {
            QVERIFY(std::count(col.begin(), col.end(), 3) == 1);
            QVERIFY(std::count(col.begin(), col.end(), 77) == 1);
        }
    }

    void consecutiviCellsBecomeTheMask() {
        Corpo c = ConPronostico({1, 2, 3, 4, 10, 11, 20, 30}, 4);
        test::FakeUi ui;
        {
            frmConsecutivi w(c, ui);
            w.show();
            QCOMPARE(w.findChild<QLabel*>("l1")->text(), QString("04"));
            QVERIFY(!w.celle()->cella(5)->isVisible());
            Clicca(Opzione(w, "optCond", 0));
            Trascina(*w.celle(), {1});
            w.close();
        }
        QCOMPARE(c.consecutivi.MaskConsecutivi, Potenze2[1]);
        int atteso = 0;
        OgniColonna({1, 2, 3, 4, 10, 11, 20, 30}, 4, [&](const std::vector<int>& col) {
            bool vicini = false;
            for (size_t i = 1; i < col.size(); ++i)
                vicini |= col[i] == col[i - 1] + 1;
            atteso += !vicini;
        });
        QCOMPARE(Sviluppa(c), atteso);
    }

    void ridottoOnSevenNumbersKeepsTheFanoPlaneAndTurnsDistanzaOff() {
        Corpo c = ConPronostico(test::Range(1, 7), 3);
        c.distanzaMinima.CondDistanzaMinima = Vero;
        test::FakeUi ui;
        {
            frmRidotto w(c, ui);
            w.show();
            QCOMPARE(w.valore()->barra()->maximum(), 3);
            Clicca(Opzione(w, "optCond", 0));
            QVERIFY(ui.boxes.empty()); // the warning waits for the closing
            w.valore()->barra()->setValue(1);
            QCOMPARE(w.findChild<QLabel*>("lblRidottoNx")->text(), QString("1"));
            w.close();
        }
        QCOMPARE(ui.boxes.size(), size_t{1});
        QCOMPARE(ui.boxes[0].text, std::string("<0021>"));
        QCOMPARE(c.distanzaMinima.CondDistanzaMinima, Falso);
        QCOMPARE(Sviluppa(c), 7);
    }

    void distanzaMinimaOfTheLengthKeepsDisjointColumns() {
        Corpo c = ConPronostico(test::Range(1, 9), 3);
        c.condizioni.CondRidotto = Vero;
        test::FakeUi ui;
        {
            frmDistanzaMinima w(c, ui);
            w.show();
            QCOMPARE(w.valore()->barra()->minimum(), 1);
            QCOMPARE(w.valore()->barra()->value(), 1);
            Clicca(Opzione(w, "optCond", 0));
            w.valore()->barra()->setValue(3);
            w.close();
        }
        QCOMPARE(ui.boxes.size(), size_t{1});
        QCOMPARE(ui.boxes[0].text, std::string("<0005>"));
        QCOMPARE(c.condizioni.CondRidotto, Falso);
        QCOMPARE(Sviluppa(c), 3);
        QCOMPARE(test::StoredColumns(c)[2], (std::vector<int>{7, 8, 9}));
    }

    void lockedSystemIsShownReadOnly() {
        Corpo c = ConPronostico(test::Range(1, 12), 4);
        c.condizioni.CondSomma = Vero;
        c.condizioni.SommaMinMax = {15, 30};
        c.condizioni.TabPari[2] = Vero;
        c.SistemaBloccato = -1;
        test::FakeUi ui;
        frmSomma somma(c, ui);
        somma.show();
        QVERIFY(Opzione(somma, "optCondSomma", 0)->isChecked());
        QVERIFY(!Opzione(somma, "optCondSomma", 0)->isEnabled());
        QVERIFY(!somma.findChild<QLineEdit*>("meDa")->isEnabled());
        somma.findChild<QLineEdit*>("meDa")->setText("1"); // cannot happen by hand; nothing is checked
        QVERIFY(somma.close());
        QCOMPARE(c.condizioni.SommaMinMax[0], int16_t{15});

        frmPari pari(c, ui);
        pari.show();
        Trascina(*pari.celle(), {1, 2});
        QVERIFY(Acceso(*pari.celle(), 2));
        QVERIFY(!Acceso(*pari.celle(), 1));
        QCOMPARE(c.condizioni.TabPari[1], Falso);
        QVERIFY(ui.boxes.empty());
    }

    void viewerPagesThroughTheSystem() {
        Corpo c = ConPronostico(test::Range(1, 8), 3);
        QCOMPARE(Sviluppa(c), 56); // six panels, the last with six lines
        test::FakeUi ui;
        frmVisualizza w(c, ui);
        w.show();
        auto riga = [&](int i) { return elementoArray<QLabel>(w, "labVisualizza", i)->text(); };
        auto pulsante = [&](const char* nome) { return w.findChild<QPushButton*>(nome); };
        auto* labNscheda = w.findChild<QLabel*>("labNscheda");
        QCOMPARE(riga(0), QString("  01-02-03"));
        QCOMPARE(labNscheda->text(), QString("1"));
        QTest::mouseClick(pulsante("cmdNext2"), Qt::LeftButton);
        QCOMPARE(labNscheda->text(), QString("6"));
        QCOMPARE(riga(5), QString("  06-07-08"));
        QCOMPARE(riga(6), QString("  "));
        QTest::mouseClick(pulsante("cmdPrev1"), Qt::LeftButton);
        QCOMPARE(labNscheda->text(), QString("5"));
        // A key held on a stepping button repeats its step.
        QTest::keyClick(pulsante("cmdPrev1"), Qt::Key_Space);
        QTest::keyClick(pulsante("cmdPrev1"), Qt::Key_Space);
        QCOMPARE(labNscheda->text(), QString("3"));
        QTest::mouseClick(pulsante("cmdPrev2"), Qt::LeftButton);
        QCOMPARE(labNscheda->text(), QString("1"));
        QTest::mouseClick(pulsante("cmdTOP"), Qt::LeftButton);
        QCOMPARE(w.pannelli().corrente(), 6);
        QTest::mouseClick(pulsante("cmdBOTTOM"), Qt::LeftButton);
        QCOMPARE(riga(9), QString("  01-03-07"));
    }

    void forecastOrderDraggedReachesNumeri() {
        Corpo c = ConPronostico({5, 10, 20, 40}, 2);
        test::FakeUi ui;
        {
            frmOrdinaPronostico w(c, ui);
            w.show();
            TabellaCelle& t = *w.celle();
            QVERIFY(t.cella(3)->isVisible());
            QVERIFY(!t.cella(4)->isVisible());
            auto* l1 = w.findChild<QLabel*>("l1");
            Mouse(&t, QEvent::MouseButtonPress, Centro(t, 0), Qt::LeftButton);
            Mouse(&t, QEvent::MouseMove, Centro(t, 2), Qt::LeftButton);
            QCOMPARE(l1->text(), QString("05"));
            Mouse(&t, QEvent::MouseMove, Centro(t, 3), Qt::LeftButton);
            Mouse(&t, QEvent::MouseButtonRelease, Centro(t, 3), Qt::NoButton);
            QCOMPARE(l1->text(), QString());
            QCOMPARE(t.cella(0)->text(), QString("40"));
            QCOMPARE(t.cella(3)->text(), QString("05"));
            QVERIFY(t.cella(3)->styleSheet().contains(QColor(255, 255, 0).name()));
            Trascina(t, {1, 1}); // onto itself: nothing
            QCOMPARE(t.cella(1)->text(), QString("10"));
            w.close();
        }
        QCOMPARE(c.pronostico.Numeri[0], uint8_t{40});
        QCOMPARE(c.pronostico.Numeri[1], uint8_t{10});
        QCOMPARE(c.pronostico.Numeri[3], uint8_t{5});
    }

    void captionsComeFromTheLanguageInUse() {
        Corpo c = ConPronostico(test::Range(1, 12), 4);
        UiInglese ui;
        frmSomma somma(c, ui);
        QCOMPARE(somma.windowTitle(), QString("Sum"));
        QCOMPARE(somma.findChild<QLabel*>("lblDA")->text(), QString("From"));
        QCOMPARE(Opzione(somma, "optCondSomma", 1)->text(), QString("OFF"));
        frmVisualizza visualizza(c, ui);
        QCOMPARE(visualizza.findChild<QPushButton*>("cmdTOP")->toolTip(), QString("Last Panel"));
        frmOrdinaPronostico ordine(c, ui);
        QCOMPARE(ordine.findChild<QGroupBox*>("titleOrdinePronostico")->title(),
                 QString("Drag the numbers to change their place"));
        test::FakeUi italiano;
        frmPari pari(c, italiano);
        QCOMPARE(pari.findChild<QLabel*>("lblPari")->text(), QString("PARI"));
    }

    void forecastOrderRandomIsDrawnFromTheSeedEvenWhenLocked() {
        Corpo c = ConPronostico(test::Range(11, 30), 5);
        c.SistemaBloccato = -1;
        test::FakeUi ui;
        Corpo atteso = c;
        OrdinePronostico logica(atteso);
        logica.casuale(99);
        logica.chiudi();
        {
            frmOrdinaPronostico w(c, ui);
            w.show();
            QVERIFY(!w.findChild<QWidget*>("titleOrdinePronostico")->isEnabled());
            QVERIFY(w.findChild<QPushButton*>("cmdPronosticoRnd")->isEnabled());
            w.ordineCasuale(99);
            QVERIFY(w.celle()->cella(0)->styleSheet().contains(QColor(128, 255, 128).name()));
            w.close();
        }
        QCOMPARE(c.pronostico.Numeri, atteso.pronostico.Numeri);
    }
};

QTEST_MAIN(DialoghiTest)
#include "DialoghiTest.moc"
