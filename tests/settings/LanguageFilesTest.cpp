// The shipped language files: complete, in step with each other and with the code.
#include "settings/Lingua.h"
#include "tests/archive/LeggiFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

namespace fs = std::filesystem;

namespace {

const fs::path Source = DV_SOURCE_DIR;

// Every numbered message of the program: 0001 to 0064 but for the numbers that hold none.
const std::set<std::string> MessaggiNumerati = [] {
    std::set<std::string> keys;
    for (int k = 1; k <= 64; ++k) {
        if (std::set<int>{11, 27, 28, 37, 47, 59, 63}.contains(k)) continue;
        char buf[8];
        std::snprintf(buf, sizeof buf, "%04d", k);
        keys.insert(buf);
    }
    return keys;
}();

// Keys that the code asks for: Lang("NNNN") in every source file.
std::set<std::string> chiaviNelCodice() {
    std::set<std::string> keys;
    for (const char* dir : {"core", "system_files", "archive", "filters", "prize", "matrix", "print",
                            "settings", "platform", "windows", "app", "cli", "server"}) {
        for (const auto& e : fs::recursive_directory_iterator(Source / dir)) {
            const auto ext = e.path().extension();
            if (ext != ".cpp" && ext != ".h") continue;
            const std::string text = dv::test::LeggiFile(e.path());
            const std::string call = "Lang(\"";
            for (size_t at = text.find(call); at != std::string::npos; at = text.find(call, at + 1)) {
                const std::string key = text.substr(at + call.size(), 5);
                if (key.size() == 5 && key[4] == '"' && std::all_of(key.begin(), key.end() - 1, ::isdigit))
                    keys.insert(key.substr(0, 4));
            }
        }
    }
    return keys;
}

} // namespace

// Windows-1252, values in quotes and keys at the start of the line (so that the file still reads
// when it grows past the size where the reader stops parsing), every numbered message the code asks
// for, and the same sections and keys in both files.
TEST(LanguageFiles, KeepTheirFormHoldEveryMessageAndHaveTheSameKeys) {
    std::set<std::string> wanted = MessaggiNumerati;
    for (const auto& k : chiaviNelCodice())
        wanted.insert(k);
    std::map<std::string, std::set<std::string>> chiavi[2];
    const char* files[] = {"italiano.lng", "english.lng"};
    for (int i = 0; i < 2; ++i) {
        SCOPED_TRACE(files[i]);
        const fs::path file = Source / "languages" / files[i];
        const std::string text = dv::test::LeggiFile(file);
        EXPECT_EQ(text.find("\xC3"), std::string::npos) << "looks like UTF-8";
        std::istringstream in(text);
        std::string line, section;
        while (std::getline(in, line)) {
            if (!line.empty() && line.back() == '\r') line.pop_back();
            if (line.empty() || line[0] == ';') continue;
            if (line[0] == '[') {
                section = line.substr(1, line.find(']') - 1);
                chiavi[i][section];
                continue;
            }
            const auto eq = line.find('=');
            ASSERT_NE(eq, std::string::npos) << line;
            EXPECT_NE(line[0], ' ') << line;
            EXPECT_NE(line[eq - 1], ' ') << line;
            EXPECT_EQ(line[eq + 1], '"') << line;
            EXPECT_EQ(line.back(), '"') << line;
            chiavi[i][section].insert(line.substr(0, eq));
        }
        for (const auto& key : wanted)
            EXPECT_FALSE(dv::ReadLanguageValue(file.string(), "Strings", key).empty()) << "lacks " << key;
    }
    EXPECT_EQ(chiavi[0], chiavi[1]);
}
