// The prize tables, the choice of table and the rounding of money, on the examples of the rules.
#include "prize/Premi.h"

#include <gtest/gtest.h>

using namespace dv;

namespace {

int32_t Vince(int tipo, int len, int h, bool oro1, bool oro2) {
    return Premio(ScegliTabella(tipo, oro1, oro2), len, h);
}

TEST(Premi, TablesHoldTheirCornerCellsAndTheCategoryCounts) {
    EXPECT_EQ(Premio(PremiClassico, 1, 1), 3);
    EXPECT_EQ(Premio(PremiClassico, 10, 10), 1000000);
    EXPECT_EQ(Premio(PremiClassico, 9, 0), 2);
    EXPECT_EQ(Premio(PremiNumeroOro, 10, 1), 10);
    EXPECT_EQ(Premio(PremiNumeroOro, 10, 10), 2500000);
    EXPECT_EQ(Premio(PremiDoppioOro, 2, 2), 250);
    EXPECT_EQ(Premio(PremiDoppioOro, 10, 10), 5000000);
    // Slice 0: the number of categories of a column of that length.
    for (int len = 1; len <= 10; ++len) {
        int classico = 0, oro = 0, doppio = 0;
        for (int h = 0; h <= 10; ++h) {
            classico += Premio(PremiClassico, len, h) != 0;
            oro += Premio(PremiNumeroOro, len, h) != 0;
            doppio += Premio(PremiDoppioOro, len, h) != 0;
        }
        EXPECT_EQ(Premio(PremiClassico, 0, len), classico) << len;
        EXPECT_EQ(Premio(PremiNumeroOro, 0, len), oro) << len;
        EXPECT_EQ(Premio(PremiDoppioOro, 0, len), doppio) << len;
    }
}

TEST(Premi, TableChoiceFollowsKindOfPlayAndFlagsWithoutFallBack) {
    EXPECT_EQ(Vince(1, 7, 0, false, false), 1); // seven numbers, no hit: wins 1
    EXPECT_EQ(Vince(1, 6, 0, false, false), 0);
    EXPECT_EQ(Vince(1, 5, 2, true, true), 1);    // Classico whatever the flags
    EXPECT_EQ(Vince(2, 10, 0, false, false), 2); // no hit, no Oro: Classico
    EXPECT_EQ(Vince(2, 5, 2, true, false), 14);
    EXPECT_EQ(Vince(2, 5, 2, false, true), 1); // the Doppio Oro plays no part in Numero ORO
    EXPECT_EQ(Vince(3, 8, 1, false, true), 8); // one Oro of two: Numero ORO
    EXPECT_EQ(Vince(3, 1, 1, true, false), 63);
    EXPECT_EQ(Vince(3, 1, 1, true, true), 0); // Doppio ORO has no length 1
    EXPECT_EQ(Vince(3, 5, 1, true, true), 0); // Oro equal to Doppio Oro, one hit: nothing
}

TEST(Premi, CostAndRoundingToEven) {
    EXPECT_FLOAT_EQ(CostoColonna(3, 2.5f), 7.5f);
    EXPECT_EQ(ArrotondaEuro(1 * 2.5), 2);
    EXPECT_EQ(ArrotondaEuro(1 * 1.5), 2);
    // The largest single prize fits in 32 bits; sums beyond wrap around without a word.
    EXPECT_EQ(ArrotondaEuro(Vince(3, 10, 10, true, true) * 200.0), 1000000000);
    EXPECT_EQ(Somma32(2147483647, 1), -2147483647 - 1);
    EXPECT_EQ(ArrotondaEuro(2147483648.0), -2147483647 - 1);
}

} // namespace
