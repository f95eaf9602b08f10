#include "core/cCombinazioni.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace dv;

// Every subset in lexicographic order, nothing past the end, and k above n refused with the class's
// own error number and text.
TEST(cCombinazioni, WalksEverySubsetInLexicographicOrderAndRefusesKAboveN) {
    cCombinazioni c;
    c.create(5, 3);
    EXPECT_EQ(c.size(), 10.0);
    std::vector<std::string> seen;
    while (c.hasNext()) {
        c.getNext();
        seen.push_back(c.toString());
    }
    ASSERT_EQ(seen.size(), 10u);
    EXPECT_EQ(seen.front(), "[1,2,3]");
    EXPECT_EQ(seen[3], "[1,3,4]");
    EXPECT_EQ(seen.back(), "[3,4,5]");
    c.getNext();
    EXPECT_EQ(c.toString(), "[3,4,5]") << "past the end nothing changes";
    EXPECT_EQ(c.Index(), 10);
    c.create(90, 25);
    EXPECT_NEAR(c.size() / 1.1613412635260274e22, 1.0, 1e-12);

    try {
        c.create(5, 6);
        FAIL() << "no error raised";
    } catch (const ErroreProgramma& e) {
        EXPECT_EQ(e.numero(), -2147211504);
        EXPECT_STREQ(e.what(), "k [6] > n [5]");
    }
    EXPECT_EQ(c.lastError(), "k [6] > n [5]");
}
