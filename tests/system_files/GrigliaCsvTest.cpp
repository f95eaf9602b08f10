// The grid written as CSV: every cell followed by ";", no quoting, and no half-written file.
#include "system_files/GrigliaCsv.h"
#include "system_files/ScrittoreSicuro.h"
#include "tests/settings/TempDir.h"
#include "tests/support/FakeUi.h"

#include <gtest/gtest.h>

namespace dv {
namespace {

TEST(MSHFlexGridTocsv, EveryCellEndsInASemicolonAndACellHoldingOneGivesAFieldMore) {
    test::TempDir dir;
    dir.write("out.csv", "an older file");
    const GrigliaTesti grid{2, 2, [](int r, int c) {
                                return r == 1 && c == 0 ? std::string("a;b") : std::to_string(r * 10 + c);
                            }};
    test::FakeUi ui;
    ASSERT_TRUE(MSHFlexGridTocsv(grid, dir.file("out.csv"), ui));
    EXPECT_EQ(dir.read("out.csv"), "0;1;\r\na;b;11;\r\n");
    EXPECT_EQ(ui.busyDepth, 0);

    EXPECT_FALSE(MSHFlexGridTocsv(grid, dir.file("missing/out.csv"), ui));
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "Error 76 (Path not found) in procedure MSHFlexGridTocsv of Module Corpo");

    GuastoScrittura guasto(7); // a full disk keeps the file before it
    EXPECT_FALSE(MSHFlexGridTocsv(grid, dir.file("out.csv"), ui));
    ASSERT_EQ(ui.boxes.size(), 2u);
    EXPECT_EQ(ui.boxes[1].text, "Error 61 (Disk full) in procedure MSHFlexGridTocsv of Module Corpo");
    EXPECT_EQ(dir.read("out.csv"), "0;1;\r\na;b;11;\r\n");
}

} // namespace
} // namespace dv
