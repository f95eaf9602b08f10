#include "settings/classINI.h"
#include "settings/Ansi.h"

#include "TempDir.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <vector>

using dv::classINI;
using dv::test::TempDir;

// Comments, blanks around names and values, case, quotes, the first of two keys, lines of either
// end and none after the last, a value cut to what the buffer holds, integers by their leading digits.
TEST(classINI, ReadsHandEditedFilesAsTheProfileCallsDo) {
    TempDir dir;
    const classINI ini(
        dir.write("a.ini", "; settings\r\n\r\n  [Altro]\r\nLINGUA=wrong\r\n[impostazioni]  \r\n\r\n"
                           "; LINGUA=commented\r\n  lingua   =   English  \r\nEMPTY=\r\n"
                           "Quoted=\"  padded  \"\r\nnoequals\r\nLINGUA=second\r\n"
                           "[S]\nK=" +
                               std::string(300, 'x') + "\nA=12abc\nB=abc\nC= -3\nL=last"));
    const struct {
        const char *section, *key, *value;
    } casi[] = {{"IMPOSTAZIONI", "LINGUA", "English"},
                {"Altro", "lingua", "wrong"},
                {"IMPOSTAZIONI", "EMPTY", ""},
                {"IMPOSTAZIONI", "QUOTED", "  padded  "},
                {"IMPOSTAZIONI", "noequals", "def"},
                {"Missing", "LINGUA", "def"},
                {"S", "L", "last"}};
    for (const auto& k : casi)
        EXPECT_EQ(ini.getProperty(k.section, k.key, "def"), k.value) << k.section << "." << k.key;
    EXPECT_EQ(ini.getProperty("S", "K", "").size(), classINI::BufferLettura - 1);
    EXPECT_EQ(ini.getInt("S", "A"), 12);
    EXPECT_EQ(ini.getInt("S", "B"), 0);
    EXPECT_EQ(ini.getInt("S", "C"), -3);
    EXPECT_EQ(ini.getInt("S", "D", 7), 7);
    ASSERT_TRUE(ini.setInt("S", "D", 2));
    EXPECT_EQ(ini.getInt("S", "D"), 2);
}

TEST(classINI, WritingMakesFileAndSectionAndKeepsEveryOtherLine) {
    TempDir dir;
    const classINI ini(dir.file("new.ini"));
    ASSERT_TRUE(ini.setProperty("IMPOSTAZIONI", "LINGUA", "ITALIANO"));
    EXPECT_EQ(ini.getProperty("impostazioni", "lingua", ""), "ITALIANO");

    const std::string original = "; keep me\r\n[A]\r\nx = 1 \r\n\r\n[B]\r\ny=2\r\n";
    const classINI other(dir.write("b.ini", original));
    ASSERT_TRUE(other.setProperty("a", "X", "9"));   // replaces the key where it stands
    ASSERT_TRUE(other.setProperty("A", "new", "n")); // joins its section, before the blank line
    ASSERT_TRUE(other.setProperty("C", "z", "3"));   // a new section at the end
    EXPECT_EQ(dir.read("b.ini"), "; keep me\r\n[A]\r\nX=9\r\nnew=n\r\n\r\n[B]\r\ny=2\r\n\r\n[C]\r\nz=3\r\n");
    EXPECT_FALSE(dir.exists("b.ini.new"));
}

// Reading a missing file gives the default and creates nothing; a file that cannot be read is not
// overwritten.
TEST(classINI, AMissingFileIsNotCreatedByReadingAndAFileThatCannotBeReadIsNotOverwritten) {
    TempDir dir;
    const classINI ini(dir.file("none.ini"));
    EXPECT_EQ(ini.getProperty("IMPOSTAZIONI", "LINGUA", "def"), "def");
    EXPECT_EQ(ini.getInt("IMPOSTAZIONI", "X"), -1);
    EXPECT_FALSE(dir.exists("none.ini"));
    std::filesystem::create_directory(dir.file("folder.ini"));
    EXPECT_FALSE(classINI(dir.file("folder.ini")).setProperty("S", "K", "v"));
    EXPECT_TRUE(std::filesystem::is_directory(dir.file("folder.ini")));
    EXPECT_FALSE(classINI(dir.file("missing/x.ini")).setProperty("S", "K", "v"));
}

TEST(classINI, TextIsAnsiOnDiskAndUtf8InMemory) {
    TempDir dir;
    const classINI ini(dir.file("a.ini"));
    ASSERT_TRUE(ini.setProperty("S", "MODALITA'", "Modalità €"));
    EXPECT_NE(dir.read("a.ini").find("=Modalit\xE0 \x80"), std::string::npos);
    EXPECT_EQ(ini.getProperty("S", "modalita'", ""), "Modalità €");
    // A user's file saved as UTF-8 with a byte-order mark reads the same.
    const classINI bom(dir.write("bom.ini", "\xEF\xBB\xBF[S]\nK=città\n"));
    EXPECT_EQ(bom.getProperty("S", "K", ""), "città");
    // Section and key compare without regard to the case of accented letters too.
    const classINI accents(dir.write("acc.ini", "[S]\nCITT\xC0=1\n"));
    EXPECT_EQ(accents.getProperty("s", "città", ""), "1");
}

TEST(Ansi, BrokenUtf8AndCharactersOutsideTheCodePageBecomeQuestionMarks) {
    EXPECT_EQ(dv::Utf8ToAnsi("a\xC3"), "a?");
    EXPECT_EQ(dv::Utf8ToAnsi("\xE2\x82"), "??");
    EXPECT_EQ(dv::Utf8ToAnsi("日"), "?");
    EXPECT_EQ(dv::AnsiToUtf8(dv::Utf8ToAnsi("àèìòù€ŒŸ")), "àèìòù€ŒŸ");
}

TEST(classINI, AWriteReadsBackAndLeavesEveryOtherKeyOfAnyFileAsItWas) {
    // Files of random lines drawn from the odd shapes users' files have.
    const char* pieces[] = {"[A]",  "[b]", " [ C ] ", "k=1", "K = 2",     "x=\"q\"", "; c=3", "",
                            "junk", "=v",  "[",       "k2=", "\xE0=\xE8", "[A]",     "y=\x01"};
    std::mt19937 rng(12345);
    TempDir dir;
    for (int round = 0; round < 200; ++round) {
        std::string text;
        const int lines = static_cast<int>(rng() % 12);
        for (int i = 0; i < lines; ++i)
            text += std::string(pieces[rng() % std::size(pieces)]) + (rng() % 2 ? "\r\n" : "\n");
        const classINI ini(dir.write("r.ini", text));
        // Sixteen keys, distinct whatever the case: one is written, the rest read as before.
        const char* sections[] = {"A", "B", "c", "new"};
        const char* keys[] = {"k", "x", "k2", "z"};
        const auto leggi = [&](size_t i) { return ini.getProperty(sections[i / 4], keys[i % 4], "<none>"); };
        std::vector<std::string> before;
        for (size_t i = 0; i < 16; ++i)
            before.push_back(leggi(i));
        const size_t scritta = rng() % 16;
        // Values with blanks at an end or quotes around read back as written too.
        const char* values[] = {"written", " written ", "'written'", "\"w\"", "\""};
        const std::string value = values[rng() % std::size(values)];
        ASSERT_TRUE(ini.setProperty(sections[scritta / 4], keys[scritta % 4], value));
        EXPECT_EQ(leggi(scritta), value) << text;
        for (size_t i = 0; i < 16; ++i)
            if (i != scritta) {
                EXPECT_EQ(leggi(i), before[i]) << text << i;
            }
    }
}
