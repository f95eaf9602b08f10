// The archive check: the stretch between two dates and draw numbers, the rounding of each draw's
// running sum, the draws skipped for their Oro number, and the date lists.
#include "tests/prize/SupportoSpoglio.h"
#include "tests/support/FakeUi.h"

#include <gtest/gtest.h>

#include <memory>

using namespace dv;
using namespace dv::test;

namespace {

class SpoglioEstrazioni : public ::testing::Test {
protected:
    // A five-minute archive: 01/03 draws 5, 10, 15; 02/03 draws 1, 2; 03/03 draw 7.
    ArrayEstrazioni cinqueMinuti() {
        ArrayEstrazioni a(1);
        for (int k : {5, 10, 15})
            a.push_back(Draw("01/03/2024", k, Range(1, 20)));
        for (int k : {1, 2})
            a.push_back(Draw("02/03/2024", k, Range(1, 20)));
        a.push_back(Draw("03/03/2024", 7, Range(1, 20)));
        return a;
    }
    std::unique_ptr<Corpo> c = std::make_unique<Corpo>();
    FakeUi ui;
    AvanzamentoSpoglio avanzamento;
};

TEST_F(SpoglioEstrazioni, StretchFollowsDatesAndDrawNumbers) {
    const ArrayEstrazioni a = cinqueMinuti();
    auto tratto = [&a](const char* d1, int c1, const char* d2, int c2) {
        const Tratto t = TrovaTratto(a, d1, c1, d2, c2);
        return std::make_pair(t.primo, t.ultimo);
    };
    using P = std::pair<int32_t, int32_t>;
    // The evening bounds 1 and 288: the first record of the first date, the last of the last.
    EXPECT_EQ(tratto("01/03/2024", 1, "02/03/2024", 288), P(1, 5));
    EXPECT_EQ(tratto("01/03/2024", 6, "01/03/2024", 15), P(2, 3));
    // A first draw number above all of the date's: the date's last record.
    EXPECT_EQ(tratto("01/03/2024", 99, "03/03/2024", 288), P(3, 6));
    // Equal dates, the last draw number below the first: that one record.
    EXPECT_EQ(tratto("01/03/2024", 10, "01/03/2024", 1), P(2, 2));
    // A date that is not there leaves the walk on the last record.
    EXPECT_EQ(tratto("09/03/2024", 1, "09/03/2024", 288), P(6, 6));
}

TEST_F(SpoglioEstrazioni, EachDrawRoundsItsRunningSumUnlikeTheSingleCheck) {
    // At 1,5 a column without hits wins 3 and one of five hits 7,5. Alone the second rounds to 8;
    // after the first the draw's sum 10,5 rounds to 10.
    ImpostaSistema(*c, 10, {Range(21, 30), {1, 2, 3, 4, 5, 21, 22, 23, 24, 25}});
    ImpostaGiocata(*c, 1, 1.5f);
    c->mArrEstrazioni = ArrayEstrazioni{Estrazione{}, Draw("01/03/2024", 1, Range(1, 20))};
    const RisultatoEstrazioni r = SpoglioArchivio(*c, ui, {1, 1}, avanzamento);
    EXPECT_EQ(r.righe[0].euro, 10);
    ImpostaEstrazione(*c, Range(1, 20));
    EXPECT_EQ(SpoglioColonne(*c, 1, 2).TotaleVinto, 11);
}

TEST_F(SpoglioEstrazioni, DrawWithoutItsOroIsSkippedWithABoxAndStillPlayed) {
    ImpostaSistema(*c, 2, {{1, 2}, {1, 30}});
    ImpostaGiocata(*c, 3, 1.0f);
    c->mArrEstrazioni = ArrayEstrazioni{Estrazione{}, Draw("01/03/2024", 1, Range(1, 20), 1, 2),
                                        Draw("02/03/2024", 1, Range(1, 20), 1, 50),
                                        Draw("03/03/2024", 1, Range(1, 20), 0, 0)};
    const RisultatoEstrazioni r = SpoglioArchivio(*c, ui, {1, 3}, avanzamento);
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "<0026> Doppio ORO [50] del 02/03/2024");
    EXPECT_EQ(ui.boxes[0].icon, BoxIcon::Exclamation);
    EXPECT_EQ(r.TotGiocato, 18); // 3 draws of 2 columns at 3 euro
    EXPECT_EQ(CelleSpoglio(c->mArrEstrazioni[2], r.righe[1]), std::vector<std::string>(20));
}

TEST_F(SpoglioEstrazioni, ProgressComesEveryTenThousandColumnsAndAStopEndsTheRun) {
    // 20,000 columns: a step after about 10,000 of them, where the stop is asked.
    ImpostaSistema(*c, 2, std::vector<std::vector<int>>(20000, {1, 2}));
    c->mArrEstrazioni = ArrayEstrazioni{Estrazione{}, Draw("01/03/2024", 1, Range(1, 20))};
    struct Ferma : AvanzamentoSpoglio {
        std::vector<double> passi;
        void progress(double done, double) override {
            passi.push_back(done);
            stop = true;
        }
    } ferma;
    const RisultatoEstrazioni r = SpoglioArchivio(*c, ui, {1, 1}, ferma);
    EXPECT_TRUE(r.fermato);
    EXPECT_EQ(ferma.passi, std::vector<double>{157 * 64});
}

TEST_F(SpoglioEstrazioni, DateListsHoldEachDateOnceUpToTheLimit) {
    std::vector<std::string> date;
    EXPECT_TRUE(DateSpoglio(cinqueMinuti(), ui, date));
    EXPECT_EQ(date, (std::vector<std::string>{"01/03/2024", "02/03/2024", "03/03/2024"}));
    EXPECT_TRUE(DateSpoglio(ArrayEstrazioni(2), ui, date));
    EXPECT_TRUE(date.empty());

    ArrayEstrazioni grande(1);
    for (int i = 0; i <= MaxDateSpoglio; ++i)
        grande.push_back(Draw(DateOf(i), 1, Range(1, 20)));
    EXPECT_FALSE(DateSpoglio(grande, ui, date));
    EXPECT_EQ(ui.boxes.back().title, "Errore dimensione archivio");
    EXPECT_EQ(date.size(), static_cast<size_t>(MaxDateSpoglio) + 1);
}

} // namespace
