// The safe writer: concurrent saves of one file, saves failing at any byte or killed at any moment,
// and the clean-up of what a killed save left behind.
#include "system_files/ScrittoreSicuro.h"
#include "archive/Conversione.h"
#include "core/Cartelle.h"
#include "core/Engine.h"
#include "print/TaraturaScheda.h"
#include "settings/classINI.h"
#include "system_files/FileSistema.h"
#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"
#include "tests/system_files/SupportoFile.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <random>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

using namespace dv;
using namespace dv::test;

TEST(ScrittoreSicuro, ConcurrentSavesOfOneFileNeverMixAndLeaveNothingBehind) {
    TempDir dir;
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
            const std::string s = LeggiFile(path);
            if (!s.empty() && (s.size() != Size || s.find_first_not_of(s[0]) != std::string::npos)) ++misti;
        }
    });
    std::thread a(salva, 'a'), b(salva, 'b');
    a.join();
    b.join();
    fine = true;
    lettore.join();
    EXPECT_EQ(misti, 0);
    const std::string s = LeggiFile(path);
    ASSERT_EQ(s.size(), Size);
    EXPECT_EQ(s.find_first_not_of(s[0]), std::string::npos);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.file("")),
                            std::filesystem::directory_iterator{}),
              1);
}

// A first start makes the data folder's tree; a later one removes only the leftovers of saves
// whose process is gone and leaves every other file alone.
TEST(ScrittoreSicuro, StartUpMakesTheFoldersAndRemovesOnlyTheLeftoversOfSavesWhoseProcessIsGone) {
    namespace fs = std::filesystem;
    TempDir dir;
    const std::string app = dir.file("app");
    Corpo c;
    ImpostaAppDir(c, app);
    for (const char* sub : SottoCartelle)
        EXPECT_TRUE(fs::is_directory(PercorsoIn(app, {sub}))) << sub;
    EXPECT_EQ(c.PathArchivioSerale, PercorsoIn(app, {"archivio", "dorvantaqvn2.dat"}));
    EXPECT_EQ(c.PathArchivioDownload, PercorsoIn(app, {"temp", "dorvantaqvn_download2.dat"}));
    EXPECT_EQ(c.TitoloFile, "nuovo.dvs");
    const std::string sistemi = PercorsoIn(app, {"sistemi"}), base = PercorsoIn(app, {"sistemi", "x.dvs"});
    // A save of this very process before start-up can only be a leftover; pid 1 is alive.
    const std::string nostro = NomeTemporaneo(base), vivo = base + ".~dv00000001deadbeef.tmp";
    const std::vector<std::string> altri = {base + ".tmp", base + ".~dv0000000zdeadbeef.tmp", vivo,
                                            base + ".~dv00000001deadbeef.tmp.bak"};
    for (const std::string& f : altri)
        Bytes{}.text("keep").save(f);
    Bytes{}.text("left").save(nostro);
    Bytes{}.text("left").save(NomeTemporaneo(PercorsoIn(app, {"temp", "y.csv"})));
    ImpostaAppDir(c, app);
    EXPECT_FALSE(fs::exists(nostro));
    EXPECT_TRUE(fs::is_empty(PercorsoIn(app, {"temp"})));
    for (const std::string& f : altri)
        EXPECT_TRUE(fs::exists(f)) << f;
}

// The writers outside the system files (settings, calibration, archive conversion) fail at any
// byte as the disk fills up and keep the previous file byte for byte, with nothing beside it.
TEST(ScrittoreSicuro, EveryWriterFailingAtAnyByteKeepsThePreviousFile) {
    namespace fs = std::filesystem;
    TempDir dir;
    std::string riga = "01/03/2024 7";
    for (int n = 1; n <= 22; ++n)
        riga += " " + std::to_string(n);
    const std::string sorgente = dir.file("in.txt");
    Bytes{}.text(riga + "\r\n" + riga + "\r\n" + riga + "\r\n" + riga + "\r\n").save(sorgente);
    SlipCalibration cal;
    cal.STAMPANTE = "Stampante dell'ufficio";
    const std::pair<const char*, std::function<bool(const std::string&)>> scrittori[] = {
        {"settings",
         [](const std::string& f) { return classINI(f).setProperty("S", "K", std::string(200, 'v')); }},
        {"calibration", [&](const std::string& f) { return SalvaTaratura(f, cal); }},
        {"archive", [&](const std::string& f) { return ConvertArchivioTmpToDat(sorgente, f).completata(); }},
    };
    for (const auto& [nome, salva] : scrittori) {
        const std::string path = dir.file(std::string(nome) + ".out");
        Bytes{}.text("[S]\nprevious=1\n").save(path);
        for (uint64_t taglio : {0u, 1u, 17u, 100u}) {
            GuastoScrittura guasto(taglio);
            EXPECT_FALSE(salva(path)) << nome << " " << taglio;
            EXPECT_EQ(LeggiFile(path), "[S]\nprevious=1\n") << nome << " " << taglio;
        }
        EXPECT_TRUE(salva(path)) << nome;
        EXPECT_GT(LeggiFile(path).size(), 100u) << nome;
        fs::remove(path);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(dir.file("")), fs::directory_iterator{}), 1); // the source
}

// A save killed at any moment: the file is the old one or the new one whole, and the next start
// removes what the killed save left behind, here in a folder outside the data folder.
TEST(SalvataggioInterrotto, AKillAtAnyMomentLosesNothingAndTheNextStartLeavesNoTemporaryFile) {
    namespace fs = std::filesystem;
    TempDir dir;
    ::setenv("XDG_STATE_HOME", dir.file("stato").c_str(), 1);
    const std::string app = dir.file("app");
    Corpo c;
    ImpostaAppDir(c, app);
    c.LenColonna = 8;
    SetForecast(c, Range(1, 22)); // 319,770 columns, 2.5 MB
    RunControl ctl;
    EngineObserver quiet;
    SviluppaIntegrale(c, c.pronostico.Quanti, c.pronostico.Numeri.data(), ctl, quiet, "");
    FakeUi ui;
    const std::string fuori = dir.file("scrivania");
    fs::create_directory(fuori);
    const std::string path = PercorsoIn(fuori, {"grande.dvs"}), altro = PercorsoIn(fuori, {"altro.dvs"});
    ASSERT_TRUE(SalvaFile(c, ui, path));
    c.pronostico.Descrizione = "saved again";
    ASSERT_TRUE(SalvaFile(c, ui, altro));
    const std::string vecchio = LeggiFile(path), nuovo = LeggiFile(altro);
    fs::remove(altro);

    std::mt19937 g(20261122);
    int avanzi = 0;
    for (int giro = 0; giro < 60 && avanzi < 3; ++giro) {
        int pronto[2];
        ASSERT_EQ(::pipe(pronto), 0);
        const pid_t pid = ::fork();
        ASSERT_GE(pid, 0);
        if (pid == 0) { // the child saves over and over until it is killed
            ::close(pronto[0]);
            (void)!::write(pronto[1], "x", 1);
            for (;;)
                SalvaFile(c, ui, path);
        }
        ::close(pronto[1]);
        char ch;
        (void)!::read(pronto[0], &ch, 1);
        ::close(pronto[0]);
        std::this_thread::sleep_for(std::chrono::microseconds(g() % 40000));
        ::kill(pid, SIGKILL);
        ::waitpid(pid, nullptr, 0);
        const std::string ora = LeggiFile(path);
        ASSERT_TRUE(ora == vecchio || ora == nuovo) << "round " << giro << ": " << ora.size() << " bytes";
        for (const auto& voce : fs::directory_iterator(fuori))
            if (voce.path().filename() != "grande.dvs") ++avanzi;
    }
    ASSERT_GT(avanzi, 0) << "no kill landed inside a save";
    PulisciSalvataggiInterrotti(); // the next start
    ImpostaAppDir(c, app);
    for (const auto& voce : fs::directory_iterator(fuori))
        EXPECT_EQ(voce.path().filename(), "grande.dvs");
    EXPECT_TRUE(fs::is_empty(dir.file("stato/Dorvanta/salvataggi")));
    ::unsetenv("XDG_STATE_HOME");
}
