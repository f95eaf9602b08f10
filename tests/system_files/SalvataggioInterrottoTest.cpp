// A save killed at any moment: the file is the old one or the new one whole, and the next start
// removes what the killed save left behind, here in a folder outside the data folder.
#include "core/Cartelle.h"
#include "core/Engine.h"
#include "system_files/FileSistema.h"
#include "tests/support/FakeUi.h"
#include "tests/support/StateBuilder.h"
#include "tests/system_files/SupportoFile.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

using namespace dv;
using namespace dv::test;

TEST(SalvataggioInterrotto, AKillAtAnyMomentLosesNothingAndTheNextStartLeavesNoTemporaryFile) {
    namespace fs = std::filesystem;
    CartellaTemporanea dir;
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
    const std::string vecchio = ReadText(path), nuovo = ReadText(altro);
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
        const std::string ora = ReadText(path);
        ASSERT_TRUE(ora == vecchio || ora == nuovo) << "round " << giro << ": " << ora.size() << " bytes";
        for (const auto& voce : fs::directory_iterator(fuori))
            if (voce.path().filename() != "grande.dvs") ++avanzi;
    }
    ASSERT_GT(avanzi, 0) << "no kill landed inside a save";
    ImpostaAppDir(c, app);
    for (const auto& voce : fs::directory_iterator(fuori))
        EXPECT_EQ(voce.path().filename(), "grande.dvs");
    EXPECT_TRUE(fs::is_empty(dir.file("stato/Dorvanta/salvataggi")));
    ::unsetenv("XDG_STATE_HOME");
}
