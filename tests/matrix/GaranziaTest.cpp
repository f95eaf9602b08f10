#include "matrix/Garanzia.h"
#include "matrix/Copertura.h"
#include "matrix/SupportoMatrici.h"
#include "reference/MatriciLetterale.h"

#include <gtest/gtest.h>

#include <random>

namespace dv {
namespace {

// The columns as masks, read the way a matrix file's columns are.
std::vector<engine::Mask> Maschere(int v, int t, int m, const std::vector<std::vector<uint8_t>>& colonne) {
    return ColonneMatrice(test::MatriceDi(v, t, m, colonne));
}

TEST(GaranziaTest, SameCountsAndHolesAsTheLiteralCheckOnRandomMatrices) {
    std::mt19937 rng(11);
    for (int caso = 0; caso < 2000; ++caso) {
        const int v = 3 + static_cast<int>(rng() % 12);
        const int k = 1 + static_cast<int>(rng() % v);
        const int m = static_cast<int>(rng() % (v + 1));
        const int t = static_cast<int>(rng() % (std::min(k, m) + 2));
        std::vector<std::vector<uint8_t>> colonne(rng() % 12);
        for (auto& col : colonne) {
            std::vector<uint8_t> tutti(static_cast<size_t>(v));
            for (int i = 0; i < v; ++i)
                tutti[static_cast<size_t>(i)] = static_cast<uint8_t>(i + 1);
            std::shuffle(tutti.begin(), tutti.end(), rng);
            col.assign(tutti.begin(), tutti.begin() + k);
        }
        const auto atteso = test::VerificaGaranziaLetterale(v, m, t, colonne);
        const auto nostro = VerificaGaranzia(v, m, t, Maschere(v, t, m, colonne), 1'000'000);
        SCOPED_TRACE(testing::Message() << "v=" << v << " k=" << k << " m=" << m << " t=" << t);
        ASSERT_EQ(nostro.subsets, atteso.subsets);
        ASSERT_EQ(nostro.covered, atteso.covered);
        ASSERT_EQ(nostro.firstHoles, atteso.holes);
    }
}

// The greedy covering is checked by the count above: every t-subset of every m-subset covered.
TEST(GaranziaTest, AGreedyCoveringHasNoHoles) {
    for (auto [v, k, t, m] : {std::array{12, 5, 3, 4}, std::array{14, 6, 2, 3}, std::array{10, 4, 3, 3}}) {
        const auto cop = CoperturaGreedy(v, k, t, m, 1);
        ASSERT_FALSE(cop.empty());
        for (const auto& col : cop)
            ASSERT_EQ(col.size(), static_cast<size_t>(k));
        const auto r = VerificaGaranzia(v, m, t, Maschere(v, t, m, cop), 1);
        EXPECT_EQ(r.covered, r.subsets) << v << " " << k << " " << t << " " << m;
    }
    EXPECT_TRUE(CoperturaGreedy(5, 6, 2, 2, 1).empty());
}

} // namespace
} // namespace dv
