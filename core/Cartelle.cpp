#include "core/Cartelle.h"

#include "core/Sistema.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <random>
#include <system_error>

#include <signal.h>
#include <unistd.h>

namespace dv {

namespace {
constexpr std::string_view PrefissoTemp = ".~dv";
constexpr std::string_view SuffissoTemp = ".tmp";
constexpr size_t CifreTemp = 16; // 8 of the process id, 8 random

void PulisciTemporanei(const std::filesystem::path& cartella) {
    std::error_code ec;
    for (const auto& voce : std::filesystem::directory_iterator(cartella, ec))
        if (TemporaneoAbbandonato(voce.path().filename().string()) && voce.is_regular_file(ec))
            std::filesystem::remove(voce.path(), ec);
}
} // namespace

std::string PercorsoIn(const std::string& base, std::initializer_list<const char*> parts) {
    std::filesystem::path p(base);
    for (const char* part : parts) p /= part;
    return p.string();
}

void ImpostaAppDir(Corpo& c, const std::string& appDir) {
    c.AppDir = appDir;
    for (const char* sub : SottoCartelle) {
        std::error_code ec; // a failure stops silently, as the folder then simply is not there
        std::filesystem::create_directories(std::filesystem::path(appDir) / sub, ec);
        PulisciTemporanei(std::filesystem::path(appDir) / sub);
    }
    PulisciTemporanei(appDir);
    c.PathArchivioDownload = PercorsoIn(appDir, {"temp", "dorvantaqvn_download2.dat"});
    c.PathArchivioSerale = PercorsoIn(appDir, {"archivio", "dorvantaqvn2.dat"});
    c.PathArchivio5Min = PercorsoIn(appDir, {"archivio", "dorvantaqvn5min2.dat"});
    c.PathArchivioManuale = PercorsoIn(appDir, {"archivio", "dorvantaqvnmanuale2.dat"});
    c.FileCorrente = PercorsoIn(appDir, {"sistemi", "nuovo.dvs"});
    c.TitoloFile = TitoloDaPath(c.FileCorrente);
}

std::string NomeTemporaneo(const std::string& target) {
    static std::atomic<uint32_t> contatore{0};
    thread_local std::mt19937 gen(std::random_device{}());
    char cifre[CifreTemp + 1];
    std::snprintf(cifre, sizeof cifre, "%08x%08x", static_cast<unsigned>(::getpid()),
                  static_cast<unsigned>(gen() ^ (contatore++ * 0x9E3779B9u)));
    return target + std::string(PrefissoTemp) + cifre + std::string(SuffissoTemp);
}

bool TemporaneoAbbandonato(std::string_view name) {
    const size_t coda = PrefissoTemp.size() + CifreTemp + SuffissoTemp.size();
    if (name.size() <= coda || !name.ends_with(SuffissoTemp)) return false;
    const std::string_view parte = name.substr(name.size() - coda);
    if (!parte.starts_with(PrefissoTemp)) return false;
    unsigned long pid = 0;
    for (size_t i = 0; i < CifreTemp; ++i) {
        const char ch = parte[PrefissoTemp.size() + i];
        const int v = ch >= '0' && ch <= '9' ? ch - '0' : ch >= 'a' && ch <= 'f' ? ch - 'a' + 10 : -1;
        if (v < 0) return false;
        if (i < 8) pid = pid * 16 + static_cast<unsigned long>(v);
    }
    if (pid == static_cast<unsigned long>(::getpid())) return true;
    return pid == 0 || pid > 0x7FFFFFFFul || (::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH);
}

} // namespace dv
