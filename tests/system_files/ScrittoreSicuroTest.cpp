// The safe writer under concurrent saves of one file, and the names of its temporary files.
#include "system_files/ScrittoreSicuro.h"
#include "tests/system_files/SupportoFile.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <thread>

using namespace dv;
using namespace dv::test;

TEST(ScrittoreSicuro, ConcurrentSavesOfOneFileNeverMixAndLeaveNothingBehind) {
    CartellaTemporanea dir;
    const std::string path = dir.file("both.txt");
    constexpr size_t Size = 200000;
    auto salva = [&](char ch) {
        const std::string chunk(1000, ch);
        for (int i = 0; i < 30; ++i) {
            ScrittoreSicuro file(path, std::ios::binary);
            for (size_t n = 0; n < Size; n += chunk.size())
                file.stream().write(chunk.data(), 1000);
            file.conferma();
        }
    };
    std::atomic<bool> fine{false};
    std::atomic<int> misti{0};
    std::thread lettore([&] {
        while (!fine) {
            const std::string s = ReadText(path);
            if (!s.empty() && (s.size() != Size || s.find_first_not_of(s[0]) != std::string::npos)) ++misti;
        }
    });
    std::thread a(salva, 'a'), b(salva, 'b');
    a.join();
    b.join();
    fine = true;
    lettore.join();
    EXPECT_EQ(misti, 0);
    const std::string s = ReadText(path);
    ASSERT_EQ(s.size(), Size);
    EXPECT_EQ(s.find_first_not_of(s[0]), std::string::npos);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.file("")),
                            std::filesystem::directory_iterator{}),
              1);
}

TEST(ScrittoreSicuro, RecognisesOnlyItsOwnTemporaryNames) {
    EXPECT_TRUE(TemporaneoScrittore("a.dvs.~dv0a1b2c3d.tmp"));
    for (const char* other :
         {"a.dvs.tmp", "a.~dv0a1b2c3.tmp", "a.~dv0a1b2c3g.tmp", ".~dv0a1b2c3d.tmp", "a.~dv0a1b2c3d.tm"})
        EXPECT_FALSE(TemporaneoScrittore(other)) << other;
}
