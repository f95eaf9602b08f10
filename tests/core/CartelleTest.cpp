#include "core/Cartelle.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace dv;
namespace fs = std::filesystem;

TEST(AppDir, FoldersAndPathsOnAFirstRunAndASecond) {
    const fs::path dir = fs::temp_directory_path() / ("dv-appdir-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()));
    fs::remove_all(dir);
    Corpo c;
    ImpostaAppDir(c, (dir / "Dorvanta").string());
    for (const char* sub : SottoCartelle) EXPECT_TRUE(fs::is_directory(dir / "Dorvanta" / sub)) << sub;
    EXPECT_EQ(fs::path(c.PathArchivioSerale), dir / "Dorvanta" / "archivio" / "dorvantaqvn2.dat");
    EXPECT_EQ(fs::path(c.PathArchivioDownload), dir / "Dorvanta" / "temp" / "dorvantaqvn_download2.dat");
    EXPECT_EQ(c.TitoloFile, "nuovo.dvs");
    fs::path marker = dir / "Dorvanta" / "sistemi" / "keep.dvs";
    { std::FILE* f = std::fopen(marker.string().c_str(), "w"); std::fclose(f); }
    Corpo again;
    ImpostaAppDir(again, (dir / "Dorvanta").string());
    EXPECT_TRUE(fs::exists(marker)) << "a second run changes nothing";
    fs::remove_all(dir);
}
