#include "settings/ScritturaSicura.h"

#include "core/Cartelle.h"
#include "core/Ui.h"

#include <cerrno>
#include <filesystem>
#include <limits>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace dv {

namespace {

constexpr uint64_t SenzaGuasto = std::numeric_limits<uint64_t>::max();
thread_local uint64_t tByteConsentiti = SenzaGuasto;

// Writeback is started every this many bytes, so that the disk works while the save still writes.
constexpr uint64_t PassoScritturaSuDisco = 8u << 20;

std::string CartellaDi(const std::string& path) {
    std::error_code ec;
    return std::filesystem::absolute(path, ec).parent_path().string();
}

// Flushes a folder, so that a rename inside it reaches the disk.
void SincronizzaCartella(const std::string& cartella) {
    const int dir = ::open(cartella.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir < 0) return;
    ::fsync(dir);
    ::close(dir);
}

// Files replaced from this size on have their blocks freed apart from the save.
constexpr uint64_t SogliaRilascioAParte = 4u << 20;

void ChiudiAParte(int fd) {
    try {
        std::thread([fd] { ::close(fd); }).detach();
    } catch (const std::system_error&) {
        ::close(fd);
    }
}

// The reason an existing target cannot be replaced, or 0; its permission bits and size into
// permessi and dimensione.
int TargetNonSostituibile(const std::string& target, int& permessi, uint64_t& dimensione) {
    struct stat st {};
    if (::stat(target.c_str(), &st) != 0) return errno == ENOENT ? 0 : errno;
    if (S_ISDIR(st.st_mode)) return EISDIR;
    if (!S_ISREG(st.st_mode)) return ErrNonUnFile;
    // A file without any write bit stays as it is even for a user the system lets write anything.
    if ((st.st_mode & 0222) == 0 || ::access(target.c_str(), W_OK) != 0) return ErrFileSolaLettura;
    permessi = static_cast<int>(st.st_mode & 07777);
    dimensione = static_cast<uint64_t>(st.st_size);
    return 0;
}

} // namespace

bool DiscoEsaurito(int codice) {
    return codice == ENOSPC || codice == EDQUOT || codice == EFBIG;
}

Causa CausaErrore(int codice) {
    if (DiscoEsaurito(codice)) return cause::DiscoPieno;
    switch (codice) {
    case EACCES:
    case EPERM:
        return cause::PermessoNegato;
    case ENOENT:
    case ENOTDIR:
        return cause::CartellaMancante;
    case EISDIR:
        return cause::CartellaNonFile;
    case EROFS:
        return cause::DiscoSolaLettura;
    case ErrFileSolaLettura:
        return cause::FileSolaLettura;
    case ErrNonUnFile:
        return cause::NonUnFile;
    default:
        return cause::ErroreDisco;
    }
}

std::string TestoCausa(Ui& ui, Causa causa) {
    if (!causa.chiave) return {};
    std::string testo = ui.Lang(causa.chiave);
    return testo.empty() ? causa.inglese : testo;
}

Causa CausaApertura(const std::string& path) {
    std::error_code ec;
    if (!std::filesystem::is_directory(CartellaDi(path), ec)) return cause::CartellaMancante;
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) return errno == ENOENT ? cause::FileMancante : CausaErrore(errno);
    if (S_ISDIR(st.st_mode)) return cause::CartellaNonFile;
    if (!S_ISREG(st.st_mode)) return cause::NonUnFile;
    if (::access(path.c_str(), R_OK) != 0) return cause::PermessoNegato;
    return cause::ErroreDisco;
}

Causa CausaSalvataggio(const std::string& target) {
    const std::string cartella = CartellaDi(target);
    std::error_code ec;
    if (!std::filesystem::is_directory(cartella, ec)) return cause::CartellaMancante;
    int permessi = -1;
    uint64_t dimensione = 0;
    if (const int e = TargetNonSostituibile(target, permessi, dimensione); e != 0) return CausaErrore(e);
    struct statvfs disco {};
    if (::statvfs(cartella.c_str(), &disco) == 0) {
        if (disco.f_flag & ST_RDONLY) return cause::DiscoSolaLettura;
        if (disco.f_bavail == 0) return cause::DiscoPieno;
    }
    if (::access(cartella.c_str(), W_OK | X_OK) != 0) return CausaErrore(errno);
    return {};
}

ScritturaSicura::ScritturaSicura(const std::string& target) : m_target(target) {
    m_errore = TargetNonSostituibile(target, m_permessi, m_dimensioneVecchio);
    if (m_errore != 0) return;
    // The note comes before the temporary file, so that a kill at any moment leaves no file that
    // the next start does not know of.
    int e = 0;
    for (int tentativo = 0; tentativo < 100; ++tentativo) {
        m_temp = NomeTemporaneo(target);
        m_nota = AnnotaSalvataggio(m_temp);
        m_fd = ::open(m_temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666);
        if (m_fd >= 0) return;
        e = errno;
        TogliNota(std::exchange(m_nota, {}));
        if (e != EEXIST && e != EINTR) break;
    }
    m_errore = e;
    m_temp.clear();
}

ScritturaSicura::~ScritturaSicura() {
    if (m_fd >= 0) ::close(m_fd);
    if (!m_temp.empty()) ::unlink(m_temp.c_str());
    TogliNota(m_nota);
}

bool ScritturaSicura::scrivi(const char* p, size_t n) {
    if (m_errore != 0) return false;
    if (tByteConsentiti != SenzaGuasto && m_scritti + n > tByteConsentiti) {
        n = static_cast<size_t>(tByteConsentiti - m_scritti);
        m_errore = ENOSPC; // the part that fits is written, as on a disk that fills up
    }
    while (n > 0) {
        const ssize_t w = ::write(m_fd, p, n);
        if (w < 0 && errno == EINTR) continue;
        if (w <= 0) {
            m_errore = w < 0 ? errno : ENOSPC;
            return false;
        }
        p += w;
        n -= static_cast<size_t>(w);
        m_scritti += static_cast<uint64_t>(w);
    }
    if (m_scritti - m_avviati >= PassoScritturaSuDisco) avviaScritturaSuDisco();
    return m_errore == 0;
}

void ScritturaSicura::avviaScritturaSuDisco() {
#ifdef __linux__
    // Only whole steps are handed over while writing; the tail goes with the final flush.
    const uint64_t fine = m_scritti - m_scritti % PassoScritturaSuDisco;
    if (fine > m_avviati)
        ::sync_file_range(m_fd, static_cast<off_t>(m_avviati), static_cast<off_t>(fine - m_avviati),
                          SYNC_FILE_RANGE_WRITE);
    m_avviati = fine;
#endif
}

int ScritturaSicura::conferma() {
    if (m_errore == 0 && ::fdatasync(m_fd) != 0) m_errore = errno;
    if (m_errore == 0 && m_permessi >= 0 && ::fchmod(m_fd, static_cast<mode_t>(m_permessi)) != 0)
        m_errore = errno;
    if (m_fd >= 0 && ::close(m_fd) != 0 && m_errore == 0) m_errore = errno;
    m_fd = -1;
    // A large file replaced keeps its blocks until its last descriptor closes: one held over the
    // rename and closed on a thread of its own spares the save the time the disk takes to free them.
    const int vecchio = m_errore == 0 && m_dimensioneVecchio >= SogliaRilascioAParte
                            ? ::open(m_target.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW)
                            : -1;
    if (m_errore == 0 && ::rename(m_temp.c_str(), m_target.c_str()) != 0) m_errore = errno;
    if (m_errore != 0) {
        if (vecchio >= 0) ::close(vecchio);
        return m_errore; // the destructor removes the temporary file
    }
    m_temp.clear();
    TogliNota(std::exchange(m_nota, {}));
    SincronizzaCartella(CartellaDi(m_target));
    if (vecchio >= 0) ChiudiAParte(vecchio);
    return 0;
}

int ScriviFileSicuro(const std::string& target, std::string_view content) {
    ScritturaSicura file(target);
    file.scrivi(content.data(), content.size());
    return file.conferma();
}

int SostituisciFile(const std::string& from, const std::string& to) {
    int errore = 0;
    const int fd = ::open(from.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (fd < 0 || ::fdatasync(fd) != 0) errore = errno;
    if (fd >= 0) ::close(fd);
    if (errore == 0 && ::rename(from.c_str(), to.c_str()) != 0) errore = errno;
    if (errore != 0) {
        ::unlink(from.c_str());
        return errore;
    }
    SincronizzaCartella(CartellaDi(to));
    return 0;
}

GuastoScrittura::GuastoScrittura(uint64_t byteConsentiti) : m_precedente(tByteConsentiti) {
    tByteConsentiti = byteConsentiti;
}

GuastoScrittura::~GuastoScrittura() {
    tByteConsentiti = m_precedente;
}

} // namespace dv
