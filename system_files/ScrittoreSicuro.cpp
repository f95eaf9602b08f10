#include "system_files/ScrittoreSicuro.h"

#include "core/Cartelle.h"
#include "system_files/ErroreEsecuzione.h"
#include "system_files/FlussoBinario.h"

#include <cerrno>
#include <limits>
#include <streambuf>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dv {

namespace {

constexpr uint64_t SenzaGuasto = std::numeric_limits<uint64_t>::max();
thread_local uint64_t tByteConsentiti = SenzaGuasto;

bool DiscoEsaurito(int e) {
    return e == ENOSPC || e == EDQUOT || e == EFBIG;
}

// The fault an errno stands for, said in words where it is a common one.
ErroreEsecuzione ErroreDa(int e) {
    if (DiscoEsaurito(e)) return errori::DiscoPieno();
    switch (e) {
    case EACCES:
    case EPERM:
        return errori::AccessoNegato("permission denied");
    case ENOENT:
        return errori::AccessoNegato("the folder does not exist");
    case EISDIR:
        return errori::AccessoNegato("a folder, not a file");
    case EROFS:
        return errori::AccessoNegato("the disk is read-only");
    default:
        return errori::AccessoNegato(std::generic_category().message(e));
    }
}

} // namespace

// A stream buffer writing straight to a file descriptor, remembering the first failure.
class BufferDescrittore : public std::streambuf {
public:
    explicit BufferDescrittore(int fd) : m_fd(fd) { setp(m_dati, m_dati + sizeof m_dati); }
    int fd() const { return m_fd; }
    int errore() const { return m_errore; }
    bool svuota() {
        const bool ok = scrivi(pbase(), static_cast<size_t>(pptr() - pbase()));
        setp(m_dati, m_dati + sizeof m_dati);
        return ok;
    }

protected:
    int_type overflow(int_type ch) override {
        if (!svuota()) return traits_type::eof();
        if (!traits_type::eq_int_type(ch, traits_type::eof())) {
            *pptr() = traits_type::to_char_type(ch);
            pbump(1);
        }
        return traits_type::not_eof(ch);
    }
    int sync() override { return svuota() ? 0 : -1; }
    std::streamsize xsputn(const char* s, std::streamsize n) override {
        if (n < static_cast<std::streamsize>(sizeof m_dati)) return std::streambuf::xsputn(s, n);
        if (!svuota() || !scrivi(s, static_cast<size_t>(n))) return 0;
        return n;
    }

private:
    bool scrivi(const char* p, size_t n) {
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
        return m_errore == 0;
    }

    int m_fd;
    int m_errore = 0;
    uint64_t m_scritti = 0;
    char m_dati[1 << 16];
};

ScrittoreSicuro::ScrittoreSicuro(const std::string& target, std::ios::openmode /*mode: always binary*/)
    : m_target(target) {
    const std::string motivo = MotivoNonScrivibile(target);
    if (!motivo.empty()) throw errori::AccessoNegato(motivo);
    std::error_code ec;
    const auto stato = std::filesystem::status(target, ec);
    if (!ec && std::filesystem::exists(stato)) m_permessi = stato.permissions();
    int fd = -1;
    for (int tentativo = 0; tentativo < 100 && fd < 0; ++tentativo) {
        m_temp = NomeTemporaneo(target);
        fd = ::open(m_temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666);
        if (fd < 0 && errno != EEXIST && errno != EINTR) break;
    }
    if (fd < 0) throw ErroreDa(errno);
    m_buffer = std::make_unique<BufferDescrittore>(fd);
    m_out = std::make_unique<std::ostream>(m_buffer.get());
}

ScrittoreSicuro::~ScrittoreSicuro() {
    if (!m_confermato) scarta();
}

void ScrittoreSicuro::scarta() {
    if (m_buffer && m_buffer->fd() >= 0) ::close(m_buffer->fd());
    m_buffer.reset();
    ::unlink(m_temp.c_str());
}

void ScrittoreSicuro::conferma() {
    m_out->flush();
    int errore = m_buffer->svuota() ? 0 : m_buffer->errore();
    if (errore == 0 && !m_out->good()) errore = EIO;
    if (errore == 0 && ::fsync(m_buffer->fd()) != 0) errore = errno;
    const int fd = m_buffer->fd();
    m_buffer.reset();
    if (::close(fd) != 0 && errore == 0) errore = errno;
    if (errore == 0 && m_permessi != std::filesystem::perms::unknown)
        ::chmod(m_temp.c_str(), static_cast<mode_t>(m_permessi) & 07777);
    if (errore == 0 && ::rename(m_temp.c_str(), m_target.c_str()) != 0) errore = errno;
    if (errore != 0) {
        ::unlink(m_temp.c_str());
        throw ErroreDa(errore);
    }
    m_confermato = true;
    // The rename itself reaches the disk once the folder is flushed too.
    std::error_code ec;
    const std::string cartella = std::filesystem::absolute(m_target, ec).parent_path().string();
    const int dir = ::open(cartella.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
}

GuastoScrittura::GuastoScrittura(uint64_t byteConsentiti) : m_precedente(tByteConsentiti) {
    tByteConsentiti = byteConsentiti;
}

GuastoScrittura::~GuastoScrittura() {
    tByteConsentiti = m_precedente;
}

} // namespace dv
