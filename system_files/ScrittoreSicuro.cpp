#include "system_files/ScrittoreSicuro.h"

#include "system_files/ErroreEsecuzione.h"

#include <cerrno>
#include <streambuf>

namespace dv {

// A stream buffer gathering small writes into blocks; large ones go straight to the file.
class BufferSalvataggio : public std::streambuf {
public:
    explicit BufferSalvataggio(ScritturaSicura& file) : m_file(file) { setp(m_dati, m_dati + sizeof m_dati); }
    bool svuota() {
        const bool ok = m_file.scrivi(pbase(), static_cast<size_t>(pptr() - pbase()));
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
        if (!svuota() || !m_file.scrivi(s, static_cast<size_t>(n))) return 0;
        return n;
    }

private:
    ScritturaSicura& m_file;
    char m_dati[1 << 16];
};

ScrittoreSicuro::ScrittoreSicuro(const std::string& target, std::ios::openmode /*mode: always binary*/)
    : m_file(target) {
    if (m_file.errore() != 0) throw errori::Salvataggio(m_file.errore());
    m_buffer = std::make_unique<BufferSalvataggio>(m_file);
    m_out = std::make_unique<std::ostream>(m_buffer.get());
}

ScrittoreSicuro::~ScrittoreSicuro() = default;

void ScrittoreSicuro::conferma() {
    m_out->flush();
    m_buffer->svuota();
    int errore = m_file.errore();
    if (errore == 0 && !m_out->good()) errore = EIO;
    if (errore == 0) errore = m_file.conferma();
    if (errore != 0) throw errori::Salvataggio(errore);
}

} // namespace dv
