#include "settings/Lingua.h"
#include "core/Corpo.h"
#include "settings/Impostazioni.h"

#include "TempDir.h"

#include <gtest/gtest.h>

using dv::test::TempDir;

namespace {

// A language file of at least n bytes: the given lines, then padding comments.
std::string fileLungo(const std::string& lines, size_t n) {
    std::string s = lines;
    while (s.size() < n)
        s += "; padding padding padding padding padding padding padding padding\r\n";
    return s;
}

} // namespace

TEST(ReadLanguageValue, LongFileIsScannedIgnoringSectionAndCase) {
    TempDir dir;
    const auto f = dir.write("x.lng", fileLungo("[frmSpoglio]\r\n"
                                                "0025=\"from another section\"\r\n"
                                                "[Strings]\r\n"
                                                "0025=\"Numero ripetuto\"\r\n"
                                                "CMD.caption=\"Esegui\"\r\n"
                                                "0026=\"\r\n"
                                                "0001=\"citt\xE0\"\r\n",
                                                70000));
    ASSERT_GE(std::filesystem::file_size(f), dv::SogliaFileLungo);
    // The first line that starts with the key wins, whatever its section.
    EXPECT_EQ(dv::ReadLanguageValue(f, "Strings", "0025"), "from another section");
    EXPECT_EQ(dv::ReadLanguageValue(f, "frmX", "cmd.Caption"), "Esegui");
    // A shorter key matches the start of a longer one, and the cut falls where it falls.
    EXPECT_EQ(dv::ReadLanguageValue(f, "Strings", "002"), "\"from another section");
    EXPECT_EQ(dv::ReadLanguageValue(f, "Strings", "0026"), "");
    EXPECT_EQ(dv::ReadLanguageValue(f, "Strings", "0099"), "");
    EXPECT_EQ(dv::ReadLanguageValue(f, "Strings", "0001"), "citt\xC3\xA0");
    // A file saved as UTF-8 with a byte-order mark reads the same.
    const auto utf8 = dir.write("y.lng", fileLungo("\xEF\xBB\xBF"
                                                   "0001=\"citt\xC3\xA0\"\r\n",
                                                   70000));
    EXPECT_EQ(dv::ReadLanguageValue(utf8, "Strings", "0001"), "citt\xC3\xA0");
}

// Up to 64,000 bytes the file is read as INI, by section and key; from 64,001 on it is scanned.
TEST(ReadLanguageValue, ThresholdIs64001Bytes) {
    TempDir dir;
    std::string body = "[frmA]\r\ncmd.Caption=\"Other\"\r\n[Strings]\r\n0001 = \"spaced\"\r\n";
    const auto shortFile = dir.write("s.lng", body + std::string(64000 - body.size(), ';'));
    ASSERT_EQ(std::filesystem::file_size(shortFile), 64000u);
    EXPECT_EQ(dv::ReadLanguageValue(shortFile, "Strings", "0001"), "spaced");
    EXPECT_EQ(dv::ReadLanguageValue(shortFile, "frmB", "cmd.Caption"), "");
    EXPECT_EQ(dv::ReadLanguageValue(dir.file("missing.lng"), "Strings", "0001"), "");
    const auto longFile = dir.write("l.lng", body + std::string(64001 - body.size(), ';'));
    // The scan takes everything behind "0001" and one character, less the first and last.
    EXPECT_EQ(dv::ReadLanguageValue(longFile, "Strings", "0001"), " \"spaced");
}

TEST(Lingua, LangReadsTheSettingWhenNoLanguageIsInUseAndAMissingFileGivesEmptyTexts) {
    TempDir dir;
    dv::Lingua nessuna{dir.path(), ""};
    EXPECT_EQ(nessuna.Lang("0053"), "");
    dir.write("dorvantaqvn.ini", "[IMPOSTAZIONI]\r\nLINGUA=ENGLISH\r\n");
    dir.write("english.lng", "[Strings]\r\n0053=\"Quit?\"\r\n");
    dv::Lingua lingua{dir.path(), ""};
    EXPECT_EQ(lingua.Lang("0053"), "Quit?");
    EXPECT_EQ(lingua.CurrentLanguage, "ENGLISH");
    EXPECT_EQ(lingua.languageFile(), dir.file("english.lng"));
    lingua.CurrentLanguage = "KLINGON";
    EXPECT_EQ(lingua.Lang("0053"), "");
}

TEST(ReadConfiguration, ReadsEveryKeyAsTheSettingsWindowWroteIt) {
    TempDir dir;
    dir.write("Italiano.lng", "[Strings]\r\n");
    dv::Corpo corpo;
    corpo.AppDir = dir.path();
    dv::Impostazioni imp;
    dv::Lingua lingua;
    ASSERT_TRUE(
        dv::ScriviImpostazioni(dir.path(), {std::string(60, 'H'), "HP LaserJet", true, 0, "ITALIANO"}));
    dv::ReadConfiguration(corpo, imp, lingua); // the values themselves come back: see the fuzz target
    EXPECT_EQ(imp.Intestazione, std::string(55, 'H'));
    EXPECT_EQ(imp.SorgenteRicalcolo, 0);           // "FILE" is stored as 2
    EXPECT_EQ(lingua.CurrentLanguage, "ITALIANO"); // the file's name compared without case
    EXPECT_EQ(lingua.languageFile(), dir.file("Italiano.lng"));
    const std::string ini = dir.read("dorvantaqvn.ini");
    EXPECT_LT(ini.find("INTESTAZIONE="), ini.find("STAMPANTE TABULATO="));
    EXPECT_LT(ini.find("STAMPANTE TABULATO="), ini.find("MODALITA' RICALCOLO=TRUE"));
    EXPECT_LT(ini.find("MODALITA' RICALCOLO=TRUE"), ini.find("SORGENTE RICALCOLO=2"));
    EXPECT_LT(ini.find("SORGENTE RICALCOLO=2"), ini.find("LINGUA=ITALIANO"));
}

TEST(ReadConfiguration, DefaultsWithoutAFileOnlyTheExactTrueTurnsTheModeOnAndNoMissingLanguage) {
    TempDir dir;
    dv::Impostazioni imp;
    imp.Intestazione = "changed";
    dv::Lingua nessuna;
    dv::ReadConfiguration(dir.path(), imp, nessuna);
    EXPECT_EQ(imp.Intestazione, "RICEVITORIA XXXX - CAMBIA LE IMPOSTAZIONI DAL MENU FILE");
    EXPECT_EQ(imp.StampanteTabulato, "NESSUNA");
    EXPECT_EQ(imp.SorgenteRicalcolo, 1);
    EXPECT_EQ(imp.Lingua, "");
    EXPECT_EQ(nessuna.CurrentLanguage, "");
    EXPECT_EQ(dv::IndirizzoServer(imp), "http://127.0.0.1:8090");

    dir.write("dorvantaqvn.ini", "[IMPOSTAZIONI]\nMODALITA' RICALCOLO=true\nSORGENTE RICALCOLO=1\n"
                                 "LINGUA=FRANCAIS\nSERVER=http://example.invalid:81/\n");
    dv::Lingua lingua{dir.path(), "ENGLISH"};
    dv::ReadConfiguration(dir.path(), imp, lingua);
    EXPECT_FALSE(imp.ModalitaRicalcolo);
    EXPECT_EQ(imp.SorgenteRicalcolo, 1);
    EXPECT_EQ(lingua.CurrentLanguage, "ENGLISH"); // no francais.lng: the language in use stays
    EXPECT_EQ(dv::ServerUrl(imp, "/public/10elotto/ver.asp"),
              "http://example.invalid:81/public/10elotto/ver.asp");
    // The header is cut to 55 characters first and trimmed afterwards.
    dir.write("dorvantaqvn.ini", "[IMPOSTAZIONI]\nINTESTAZIONE=\"  " + std::string(60, 'H') + "\"\n");
    dv::ReadConfiguration(dir.path(), imp, lingua);
    EXPECT_EQ(imp.Intestazione, std::string(53, 'H'));
}
