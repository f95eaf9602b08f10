// The number lists and ranges of the command line.
#include "cli/ListaNumeri.h"

#include <gtest/gtest.h>

using namespace dv::cli;

TEST(ListaNumeri, ReadsNumbersAndRangesInAnyOrderAndRefusesMalformedOrOutOfRangeItems) {
    std::string why;
    EXPECT_EQ(LeggiLista("45,1-3,2", 1, 90, why), (std::vector<int>{1, 2, 3, 45}));
    EXPECT_EQ(LeggiLista("0", 0, 25, why), (std::vector<int>{0}));
    EXPECT_EQ(LeggiIntervallo("10:200", 0, 2250, why), std::make_pair(10, 200));
    for (const char* bad : {"", "1,,2", "a", "3-1", "1-", "0-5", "91", "1.5", "-2"}) {
        EXPECT_FALSE(LeggiLista(bad, 1, 90, why)) << bad;
        EXPECT_FALSE(why.empty());
    }
    for (const char* bad : {"", "10", "20:10", "1:x", "-1:5", "0:3000"})
        EXPECT_FALSE(LeggiIntervallo(bad, 0, 2250, why)) << bad;
}
