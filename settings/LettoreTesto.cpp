#include "settings/LettoreTesto.h"

#include "core/Helpers.h"
#include "core/Ui.h"

#include <cstring>

#include <sys/stat.h>

namespace dv {

namespace {
constexpr size_t Blocco = 1 << 16;
}

LettoreTesto::LettoreTesto(const std::string& path, size_t maxRiga)
    : m_file(std::fopen(path.c_str(), "rb")), m_max(maxRiga), m_buf(new char[Blocco]) {
    // A folder opens for reading too, and a pipe could wait for ever: only files are read.
    struct stat st {};
    if (m_file && (::fstat(::fileno(m_file), &st) != 0 || !S_ISREG(st.st_mode))) {
        std::fclose(m_file);
        m_file = nullptr;
    }
}

LettoreTesto::~LettoreTesto() {
    if (m_file) std::fclose(m_file);
}

bool LettoreTesto::riempi() {
    m_pos = 0;
    m_len = std::fread(m_buf.get(), 1, Blocco, m_file);
    return m_len > 0;
}

LettoreTesto::Esito LettoreTesto::leggi(std::string& riga) {
    if (m_troppoLunga) return Esito::TroppoLunga;
    riga.clear();
    bool letto = false;
    for (;;) {
        if (m_pos == m_len && !riempi()) {
            if (std::ferror(m_file)) return Esito::ErroreLettura;
            if (!letto) return Esito::Fine;
            ++m_numero;
            return Esito::Riga;
        }
        const char* p = m_buf.get() + m_pos;
        const size_t n = m_len - m_pos;
        const char* e = static_cast<const char*>(std::memchr(p, '\n', n));
        const size_t k = e ? static_cast<size_t>(e - p) : n;
        letto = true;
        if (riga.size() + k > m_max) {
            riga.append(p, m_max - riga.size());
            ++m_numero;
            m_troppoLunga = true;
            return Esito::TroppoLunga;
        }
        riga.append(p, k);
        m_pos += k;
        if (!e) continue;
        ++m_pos;
        if (!riga.empty() && riga.back() == '\r') riga.pop_back();
        ++m_numero;
        return Esito::Riga;
    }
}

std::string Spezzone(std::string_view riga, size_t max) {
    return riga.size() <= max ? std::string(riga) : std::string(riga.substr(0, max)) + "...";
}

std::string TestoRigaTroppoLunga(Ui& ui, const LettoreTesto& lettore) {
    std::string testo = ui.Lang("0269");
    if (testo.empty()) testo = "Line %1 is longer than %2 characters.";
    return TestoCon(testo, std::to_string(lettore.numeroRiga()), std::to_string(lettore.maxRiga()));
}

} // namespace dv
