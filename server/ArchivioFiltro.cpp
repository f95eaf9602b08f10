#include "server/ArchivioFiltro.h"

#include "settings/Online.h"

#include <algorithm>
#include <cstdio>

namespace dv::server {

namespace {

bool cifre(std::string_view s) {
    if (s.empty()) return false;
    for (char c : s)
        if (c < '0' || c > '9') return false;
    return true;
}

int numero(std::string_view s) {
    int n = 0;
    for (char c : s) n = n * 10 + (c - '0');
    return n;
}

bool dataValida(int y, int m, int d) {
    static constexpr int giorni[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (y < 1900 || y > 9999 || m < 1 || m > 12 || d < 1) return false;
    const bool bisestile = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
    return d <= giorni[m - 1] && !(m == 2 && d == 29 && !bisestile);
}

} // namespace

std::optional<int> DataRigaEstrazione(std::string_view line) {
    const size_t end = line.find_first_of(" \t-,;.|");
    const std::string_view field = line.substr(0, end);
    const size_t s1 = field.find('/');
    const size_t s2 = s1 == std::string_view::npos ? s1 : field.find('/', s1 + 1);
    if (s2 == std::string_view::npos) return std::nullopt;
    const auto d = field.substr(0, s1), m = field.substr(s1 + 1, s2 - s1 - 1), y = field.substr(s2 + 1);
    if (!cifre(d) || !cifre(m) || !cifre(y) || d.size() > 2 || m.size() > 2 || y.size() != 4) return std::nullopt;
    if (!dataValida(numero(y), numero(m), numero(d))) return std::nullopt;
    return numero(y) * 10000 + numero(m) * 100 + numero(d);
}

std::optional<int> DataParametro(std::string_view dal) {
    if (dal.size() != 8 || !cifre(dal)) return std::nullopt;
    const int v = numero(dal);
    if (!dataValida(v / 10000, v / 100 % 100, v % 100)) return std::nullopt;
    return v;
}

std::string FiltraArchivioDal(std::string_view archivio, int dal) {
    std::string out;
    FiltroArchivioDal filtro(dal);
    filtro.aggiungi(archivio, out);
    filtro.fine(out);
    return out;
}

namespace {
// A date field is at most "dd/mm/yyyy" before its separator: a line's first bytes decide it.
constexpr size_t InizioDecisivo = 16;
} // namespace

void FiltroArchivioDal::decidi(std::string& out) {
    const auto data = DataRigaEstrazione(m_inizio);
    m_tieni = !data || *data >= m_dal;
    m_deciso = true;
    if (m_tieni) out += m_inizio;
    m_inizio.clear();
}

void FiltroArchivioDal::aggiungi(std::string_view pezzo, std::string& out) {
    while (!pezzo.empty()) {
        const size_t nl = pezzo.find('\n');
        const size_t fineRiga = nl == std::string_view::npos ? pezzo.size() : nl + 1;
        std::string_view parte = pezzo.substr(0, fineRiga);
        pezzo.remove_prefix(fineRiga);
        if (!m_deciso) {
            const size_t presi = std::min(parte.size(), InizioDecisivo - m_inizio.size());
            m_inizio.append(parte.substr(0, presi));
            parte.remove_prefix(presi);
            if (m_inizio.size() < InizioDecisivo && m_inizio.back() != '\n') continue;
            decidi(out);
        }
        if (m_tieni) out += parte;
        if (nl != std::string_view::npos) m_deciso = false;
    }
}

void FiltroArchivioDal::fine(std::string& out) {
    if (!m_deciso && !m_inizio.empty()) decidi(out);
    m_deciso = false;
}

std::optional<std::string> PercorsoRelativoSicuro(std::string_view requestPath) {
    if (requestPath.empty() || requestPath.front() != '/') return std::nullopt;
    std::string out;
    size_t pos = 1;
    while (pos <= requestPath.size()) {
        size_t slash = requestPath.find('/', pos);
        if (slash == std::string_view::npos) slash = requestPath.size();
        const std::string_view segment = requestPath.substr(pos, slash - pos);
        if (!NomeFileSicuro(segment) || segment.front() == '.') return std::nullopt;
        if (!out.empty()) out += '/';
        out += segment;
        pos = slash + 1;
    }
    return out;
}

} // namespace dv::server
