#include "matrix/ImportaTesto.h"
#include "matrix/SupportoMatrici.h"
#include "support/FakeUi.h"

#include <gtest/gtest.h>

namespace dv {
namespace {

MATRIX_STRUCTURE Importa(const std::string& testo, test::FakeUi& ui) {
    const test::TempDir dir;
    return ImportMatrixText(dir.write("m.txt", testo), ui, 46000);
}

TEST(ImportaTestoTest, ColumnsOfIndicesWithTabsBlankLinesAndAShortLine) {
    test::FakeUi ui;
    const MATRIX_STRUCTURE m = Importa("  1 2\t 3\r\n\r\n\t\n3  4 5\n2 1\n", ui);
    EXPECT_TRUE(ui.boxes.empty());
    EXPECT_EQ(m.NUMBERS_OF_MATRIX_V, 5);
    EXPECT_EQ(m.LENGTH_OF_COLUMN_K, 3);
    EXPECT_EQ(m.COLUMNS_OF_MATRIX_C, 3);
    EXPECT_EQ(m.COLUMS, (std::vector<uint8_t>{1, 3, 2, 2, 4, 1, 3, 5, 0}));
    EXPECT_EQ(m.MATRIX_READY, -1);
    EXPECT_EQ(m.VALID_FROM, 46000);
    EXPECT_EQ(ui.busyDepth, 0);
}

TEST(ImportaTestoTest, RefusalsShowTheirBoxAndLeaveVAtZero) {
    const struct {
        const char* testo;
        std::string box;
    } casi[] = {
        {"1 2\n4 5\n", "Error -2147211504 (Matrice con sviluppo non sequenziale) "},
        {"1 2\n1 2 3\n", "Error -2147211504 (Matrice con colonne a lunghezza multipla) "},
        {"1 0\n", "Error -2147211504 (Matrice con sviluppo non sequenziale) "},
        {"1 91\n", "Error -2147211504 (Matrice con sviluppo non sequenziale) "},
        {"1 x\n", "Error 13 (Type mismatch) "},
    };
    for (const auto& c : casi) {
        test::FakeUi ui;
        const MATRIX_STRUCTURE m = Importa(c.testo, ui);
        ASSERT_EQ(ui.boxes.size(), 1u) << c.testo;
        EXPECT_EQ(ui.boxes[0].text, c.box);
        EXPECT_EQ(ui.boxes[0].title, "ERROR");
        EXPECT_EQ(ui.boxes[0].icon, BoxIcon::Exclamation);
        EXPECT_EQ(m.NUMBERS_OF_MATRIX_V, 0);
        EXPECT_EQ(m.MATRIX_READY, 0);
        EXPECT_EQ(ui.busyDepth, 0);
    }
    test::FakeUi ui;
    EXPECT_EQ(ImportMatrixText("/nonexistent/m.txt", ui, 1).NUMBERS_OF_MATRIX_V, 0);
    EXPECT_EQ(ui.boxes.at(0).text, "Error 76 (Path not found) ");
}

TEST(ImportaTestoTest, LinesAfterTheHundredThousandthAreNotRead) {
    std::string testo;
    for (int i = 0; i < 100'000; ++i)
        testo += "1 2\n";
    testo += "1 2 3\n"; // would fail as of multiple length if read
    test::FakeUi ui;
    const MATRIX_STRUCTURE m = Importa(testo, ui);
    EXPECT_TRUE(ui.boxes.empty());
    EXPECT_EQ(m.COLUMNS_OF_MATRIX_C, 100'000);
    EXPECT_EQ(m.NUMBERS_OF_MATRIX_V, 2);
}

} // namespace
} // namespace dv
