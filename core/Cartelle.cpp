#include "core/Cartelle.h"

#include "core/Sistema.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <system_error>

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
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

namespace {
// The process id held by the first 8 of a name's 16 hex digits, or -1 when they are not that.
long PidDelleCifre(std::string_view cifre) {
    if (cifre.size() != CifreTemp) return -1;
    long pid = 0;
    for (size_t i = 0; i < CifreTemp; ++i) {
        const char ch = cifre[i];
        const int v = ch >= '0' && ch <= '9' ? ch - '0' : ch >= 'a' && ch <= 'f' ? ch - 'a' + 10 : -1;
        if (v < 0) return -1;
        if (i < 8) pid = pid * 16 + v;
    }
    return pid;
}

bool ProcessoFinito(long pid) {
    return pid == 0 || pid > 0x7FFFFFFFl || (::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH);
}
} // namespace

bool TemporaneoAbbandonato(std::string_view name) {
    const size_t coda = PrefissoTemp.size() + CifreTemp + SuffissoTemp.size();
    if (name.size() <= coda || !name.ends_with(SuffissoTemp)) return false;
    const std::string_view parte = name.substr(name.size() - coda);
    if (!parte.starts_with(PrefissoTemp)) return false;
    const long pid = PidDelleCifre(parte.substr(PrefissoTemp.size(), CifreTemp));
    if (pid < 0) return false;
    return pid == ::getpid() || ProcessoFinito(pid);
}

namespace {
std::filesystem::path CartellaNote() {
    if (const char* s = std::getenv("XDG_STATE_HOME"); s && *s == '/')
        return std::filesystem::path(s) / "Dorvanta" / "salvataggi";
    if (const char* h = std::getenv("HOME"); h && *h == '/')
        return std::filesystem::path(h) / ".local" / "state" / "Dorvanta" / "salvataggi";
    return {};
}

constexpr std::string_view SuffissoParziale = ".part";

// A note is named by the digits of its temporary file's name and holds that file's path.
std::string_view CifreDi(std::string_view temporaneo) {
    const size_t coda = CifreTemp + SuffissoTemp.size();
    return temporaneo.size() > coda ? temporaneo.substr(temporaneo.size() - coda, CifreTemp)
                                    : std::string_view{};
}
} // namespace

std::string AnnotaSalvataggio(const std::string& temporaneo) {
    const std::filesystem::path cartella = CartellaNote();
    std::error_code ec;
    const std::string assoluto = std::filesystem::absolute(temporaneo, ec).string();
    if (cartella.empty() || ec) return {};
    // Written under a name of its own and then renamed, so that a note is never seen half-written.
    const std::string nota = (cartella / CifreDi(temporaneo)).string();
    const std::string parziale = nota + std::string(SuffissoParziale);
    const int flag = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
    int fd = ::open(parziale.c_str(), flag, 0600);
    if (fd < 0 && errno == ENOENT) {
        std::filesystem::create_directories(cartella, ec);
        fd = ::open(parziale.c_str(), flag, 0600);
    }
    if (fd < 0) return {};
    const auto n = static_cast<ssize_t>(assoluto.size());
    const bool scritta = ::write(fd, assoluto.data(), assoluto.size()) == n;
    ::close(fd);
    if (!scritta || ::rename(parziale.c_str(), nota.c_str()) != 0) {
        ::unlink(parziale.c_str());
        return {};
    }
    return nota;
}

void TogliNota(const std::string& nota) {
    if (!nota.empty()) ::unlink(nota.c_str());
}

void PulisciSalvataggiInterrotti() {
    const std::filesystem::path cartella = CartellaNote();
    std::error_code ec;
    if (cartella.empty() || !std::filesystem::is_directory(cartella, ec)) return;
    for (const auto& voce : std::filesystem::directory_iterator(cartella, ec)) {
        const std::string nome = voce.path().filename().string();
        const bool parziale = nome.ends_with(SuffissoParziale);
        const std::string cifre = parziale ? nome.substr(0, nome.size() - SuffissoParziale.size()) : nome;
        // The note's own name tells its process: this one's saves, and those of a process still
        // running, are left alone.
        const long pid = PidDelleCifre(cifre);
        if (pid < 0 || pid == ::getpid() || !ProcessoFinito(pid)) continue;
        // A note cut before its rename came before its temporary file was made.
        if (parziale) {
            std::filesystem::remove(voce.path(), ec);
            continue;
        }
        std::string temporaneo(4096, '\0');
        const int fd = ::open(voce.path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
        const ssize_t letti = fd >= 0 ? ::read(fd, temporaneo.data(), temporaneo.size()) : -1;
        if (fd >= 0) ::close(fd);
        temporaneo.resize(letti > 0 ? static_cast<size_t>(letti) : 0);
        // Only a regular file of our name pattern, with the note's own digits, is removed.
        const std::string campione = std::string(PrefissoTemp) + cifre + std::string(SuffissoTemp);
        struct stat st {};
        if (temporaneo.ends_with(campione) && ::lstat(temporaneo.c_str(), &st) == 0 && S_ISREG(st.st_mode))
            ::unlink(temporaneo.c_str());
        std::filesystem::remove(voce.path(), ec);
    }
}

} // namespace dv
