// The loader of the archive files and the rules every consumer relies on.
#include "archive/Archivio.h"
#include "reference/ArchivioLetterale.h"
#include "settings/TempDir.h"
#include "support/FakeUi.h"
#include "support/StateBuilder.h"
#include "tests/archive/SupportoArchivio.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace dv {
namespace {

std::string Record(const Estrazione& e) {
    const auto r = RecordEstrazione(e);
    return {r.data(), r.size()};
}

// Twenty numbers from primo on, the first two as Oro and Doppio Oro.
std::string Record(const char* data, int concorso, int primo) {
    return Record(test::Draw(data, concorso, test::Range(primo, primo + 19), primo, primo + 1));
}

TEST(LoadArchivioDAT, AMissingFileGivesOneBlankDrawAndIsLeftEmptyOnDiskAndAFolderInItsPlaceABox) {
    test::TempDir dir;
    const std::string archivio = dir.file("archivio");
    test::FakeUi ui;
    const ArrayEstrazioni a = LoadArchivioDAT(archivio + "/x.dat", archivio, ui);
    EXPECT_EQ(UBound(a), 1);
    EXPECT_TRUE(ArchivioVuoto(a) && EstrazioneVuota(a[1]));
    EXPECT_EQ(std::filesystem::file_size(archivio + "/x.dat"), 0u);
    EXPECT_TRUE(ui.boxes.empty());
    EXPECT_EQ(ui.busyDepth, 0);

    // A folder in place of the file ends in the box that names the path.
    std::filesystem::create_directories(dir.file("a.dat"));
    EXPECT_TRUE(ArchivioVuoto(LoadArchivioDAT(dir.file("a.dat"), dir.path(), ui)));
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes[0].text, "Error 75 (Path/File access error: <0262> --> " + dir.file("a.dat") +
                                    ") in procedure LoadArchivioDAT of Form frmUpdate");
}

// Random files of draws, now and then a record of zeros or blanks or a damaged date, and an
// incomplete tail: the same draws as the literal reading, without a word.
TEST(LoadArchivioDAT, ExactlyOneGrowthStepAndRandomFilesAsTheLiteralReading) {
    test::TempDir dir;
    test::FakeUi ui;
    std::string cinquemila;
    for (int i = 0; i < 5000; ++i)
        cinquemila += Record("15/03/2024", i, 1);
    EXPECT_EQ(UBound(LoadArchivioDAT(dir.write("a.dat", cinquemila), dir.path(), ui)), 5000);
    cinquemila += Record("16/03/2024", 1, 1);
    EXPECT_EQ(UBound(LoadArchivioDAT(dir.write("a.dat", cinquemila), dir.path(), ui)), 5001);

    std::mt19937 rng(7);
    const char* date[] = {"10/10/2023", "30/02/2024", "31/12/2024", "29/02/2023"};
    for (int prova = 0; prova < 20; ++prova) {
        std::string bytes;
        const int n = static_cast<int>(rng() % 12000);
        for (int i = 0; i < n; ++i) {
            std::string r =
                Record(date[rng() % 4], static_cast<int16_t>(rng()), static_cast<int>(rng() % 91));
            if (rng() % 50 == 0) r[rng() % 10] = static_cast<char>(rng());
            if (rng() % 100 == 0) r.assign(DimensioneRecordEstrazione, rng() % 2 ? '\0' : ' ');
            bytes += r;
        }
        bytes += std::string(rng() % 34, 'x');
        const std::string path = dir.write("r.dat", bytes);
        const ArrayEstrazioni a = LoadArchivioDAT(path, dir.path(), ui);
        const ArrayEstrazioni b = reference::CaricaLetterale(path);
        ASSERT_EQ(a.size(), b.size());
        for (size_t i = 1; i < a.size(); ++i)
            ASSERT_EQ(Record(a[i]), Record(b[i])) << i;
    }
    EXPECT_TRUE(ui.boxes.empty());
}

} // namespace
} // namespace dv
