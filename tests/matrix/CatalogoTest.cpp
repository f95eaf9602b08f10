#include "matrix/Catalogo.h"
#include "matrix/SupportoMatrici.h"

#include <gtest/gtest.h>

#include <fstream>

namespace dv {
namespace {

using test::CartellaTemporanea;
using test::MatriceDi;

TEST(CatalogoTest, FilterKeepsSizeAndLengthBehindTheCustomRowAndValidityCountsWholeDays) {
    CartellaTemporanea dir("filtro");
    const double oggi = 46000;
    EXPECT_EQ(ListMatrixFiles(dir.in("matrici"), "*.mqvn"), std::vector<std::string>{""});
    EXPECT_TRUE(BuildMatrixCatalog(dir.str(), 0, 10, oggi).empty());
    EXPECT_EQ(BuildMatrixCatalog(dir.str(), 20, 10, oggi).size(), 1u); // only the custom row
    ScriviMatrice(dir.in("matrici/a.mqvn"), MatriceDi(4, 2, 2, {{1, 2}, {3, 4}}, oggi + 0.9, oggi + 0.1));
    ScriviMatrice(dir.in("matrici/b.MQVN"), MatriceDi(4, 2, 2, {{1, 2}, {3, 4}}, oggi + 1, oggi - 1));
    ScriviMatrice(dir.in("matrici/c.mqvn"), MatriceDi(4, 3, 3, {{1, 2, 3}, {2, 3, 4}}));
    ScriviMatrice(dir.in("matrici/d.mqvn"), MatriceDi(5, 2, 2, {{1, 2}, {3, 4}, {5, 1}}));
    std::ofstream(dir.in("matrici/e.txt")) << "1 2\n";

    const auto tutte = BuildMatrixCatalog(dir.str(), 0, 2, oggi);
    EXPECT_EQ(tutte.size(), 4u);
    const auto cat = BuildMatrixCatalog(dir.str(), 4, 2, oggi);
    ASSERT_EQ(cat.size(), 3u); // the custom row first, then a and b
    EXPECT_EQ(cat[0].FILE_NAME, "CUSTOM");
    EXPECT_EQ(cat[0].AUTHOR, "NORVANE");
    EXPECT_EQ(cat[0].DESCRIPTION, "Premi il pulsante File TXT e carica la tua matrice");
    EXPECT_EQ(cat[0].SIGNATURE_OK, -1); // sound, so the window lets a text matrix in
    EXPECT_EQ(cat[0].CRC_OK, -1);
    for (size_t i = 1; i < 3; ++i) {
        // a is valid today only, to the day; b is not yet started and already expired.
        const bool a = cat[i].FILE_NAME == "a.mqvn";
        EXPECT_TRUE(a || cat[i].FILE_NAME == "b.MQVN");
        EXPECT_EQ(cat[i].STARTED, a ? -1 : 0);
        EXPECT_EQ(cat[i].EXPIRED, a ? 0 : -1);
    }
}

TEST(CatalogoTest, SortIsTheExchangeSortByVAndLeavesEqualRowsWhereItsLoopsPutThem) {
    std::vector<MATRIX_CATALOG_ENTRY> cat(5);
    const int v[] = {30, 10, 20, 10, 5};
    const char* nomi[] = {"A", "B", "C", "D", "E"};
    for (size_t i = 0; i < 5; ++i) {
        cat[i].NUMBERS_OF_MATRIX_V = static_cast<uint8_t>(v[i]);
        cat[i].FILE_NAME = nomi[i];
    }
    SortMatrixCatalog(cat);
    std::string ordine;
    for (const auto& e : cat)
        ordine += e.FILE_NAME;
    // Worked by hand through the two loops.
    EXPECT_EQ(ordine, "EDBCA");
    // A stable sort would give E B D C A: the two tens come out reversed.
}

// The list's rows are pinned by the window's and the command line's tests; the fields' grouping and
// overflow, and the dates, here.
TEST(CatalogoTest, FieldsGroupThousandsAndNeverCutAndDatesAreDaySerials) {
    EXPECT_EQ(PadField(100000, 6), "100.000");
    EXPECT_EQ(PadField(1234, 3), "1234");
    EXPECT_EQ(SerialeDaData(2026, 11, 22), 46348);
    EXPECT_EQ(DataGGMMAAAA(46348.75), "22/11/2026");
    EXPECT_EQ(DataYYYYMMDD(1e300), "99991231");
    double s = 0;
    EXPECT_TRUE(SerialeDaYYYYMMDD("20000229", s));
    EXPECT_FALSE(SerialeDaYYYYMMDD("20010229", s));
    EXPECT_FALSE(SerialeDaYYYYMMDD("2001022", s));
}

} // namespace
} // namespace dv
