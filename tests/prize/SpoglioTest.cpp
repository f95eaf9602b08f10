// The single-draw check: the validation order with its boxes and focus, and the run's counts.
#include "tests/prize/SupportoSpoglio.h"
#include "tests/support/FakeUi.h"

#include <gtest/gtest.h>

#include <memory>

using namespace dv;
using namespace dv::test;

namespace {

class Spoglio : public ::testing::Test {
protected:
    Spoglio() {
        ImpostaSistema(*c, 7,
                       {{1, 2, 3, 4, 5, 6, 7}, {11, 12, 13, 14, 15, 16, 17}, {21, 22, 23, 24, 25, 26, 27}});
        for (size_t i = 0; i < 20; ++i)
            caselle.numeri[i] = TestoCasella(static_cast<uint8_t>(90 - i));
        caselle.da = "1";
        caselle.a = "3";
    }
    std::unique_ptr<Corpo> c = std::make_unique<Corpo>();
    FakeUi ui;
    CaselleSpoglio caselle;
};

TEST_F(Spoglio, RefusalsComeInTheirOrderWithTheirFocusAndLongColumnsFirst) {
    // Two blanks sort first and fail as a repeat; one blank fails the range with "[0]".
    caselle.numeri[4] = caselle.numeri[9] = "__";
    EXPECT_EQ(ValidaSpoglio(*c, ui, caselle).fuoco, 0);
    EXPECT_EQ(ui.boxes.back().text, "<0025>");
    EXPECT_EQ(caselle.numeri[2], "71"); // the boxes stay sorted after a failed run
    caselle.numeri[0] = "50";
    EXPECT_EQ(ValidaSpoglio(*c, ui, caselle).fuoco, 0);
    EXPECT_EQ(ui.boxes.back().text, "<0026>[0]");
    caselle.numeri[0] = "95";
    EXPECT_EQ(ValidaSpoglio(*c, ui, caselle).fuoco, 19);
    EXPECT_EQ(ui.boxes.back().text, "<0026>[95]");
    caselle.numeri[19] = "49";

    // The range of columns, with the error title.
    const std::pair<std::pair<const char*, const char*>, const char*> casi[] = {
        {{"3", "2"}, "<0022>"}, {{"0", "2"}, "<0023>"}, {{"1", "4"}, "<0024>"}};
    for (const auto& [range, key] : casi) {
        caselle.da = range.first;
        caselle.a = range.second;
        EXPECT_FALSE(ValidaSpoglio(*c, ui, caselle).ok);
        EXPECT_EQ(ui.boxes.back().text, key);
        EXPECT_EQ(ui.boxes.back().title, " !!! ERROR !!! ");
    }
    caselle.da = "1";
    caselle.a = "3";

    // An Oro number not drawn, only for the kinds of play that use it.
    caselle.oro = "03";
    caselle.doppio = "04";
    EXPECT_TRUE(ValidaSpoglio(*c, ui, caselle).ok);
    ImpostaGiocata(*c, 2, 1.0f);
    EXPECT_EQ(ValidaSpoglio(*c, ui, caselle).fuoco, FuocoOro);
    EXPECT_EQ(ui.boxes.back().text, "<0026>[3]");
    caselle.oro = "";
    EXPECT_TRUE(ValidaSpoglio(*c, ui, caselle).ok);
    EXPECT_EQ(c->OroSpoglio, 0);        // a blank Oro box is stored as no number
    EXPECT_EQ(c->NumeriSpoglio[1], 49); // sorted and stored
    ImpostaGiocata(*c, 3, 1.0f);
    EXPECT_EQ(ValidaSpoglio(*c, ui, caselle).fuoco, FuocoDoppio);
    EXPECT_EQ(ui.boxes.back().text, "<0026>[4]");

    // Columns longer than ten are refused before anything else, and the boxes stay.
    c->LenColonna = 11;
    caselle.numeri[0] = "__";
    EXPECT_FALSE(ValidaSpoglio(*c, ui, caselle).ok);
    EXPECT_EQ(ui.boxes.back().text, "NON disponibile per colonne con lunghezza > 10");
    EXPECT_EQ(ui.boxes.back().title, "Warning");
    EXPECT_EQ(ui.boxes.back().icon, BoxIcon::Critical);
    EXPECT_EQ(caselle.numeri[0], "__");
}

TEST_F(Spoglio, EachColumnIsRoundedByItselfAndTheTotalWrapsIn32Bits) {
    // Three columns of seven without a hit win 1 each: at 2,5 each rounds to 2, total 6.
    ImpostaGiocata(*c, 1, 2.5f);
    ImpostaEstrazione(*c, Range(71, 90));
    const int32_t totale = SpoglioColonne(*c, 1, 3).TotaleVinto;
    EXPECT_EQ(totale, 6);
    EXPECT_EQ(TestoTotale(totale, '.', ','), "6,00");

    // Three tens at Doppio ORO, stake 200: 1,000,000,000 each, and the total wraps around in 32 bits.
    const std::vector<int> col = Range(1, 10);
    ImpostaSistema(*c, 10, {col, col, col});
    ImpostaGiocata(*c, 3, 200.0f);
    ImpostaEstrazione(*c, Range(1, 20), 1, 2);
    EXPECT_EQ(SpoglioColonne(*c, 1, 3).TotaleVinto, static_cast<int32_t>(3000000000u));
}

} // namespace
