#include "settings/RispostaHttp.h"

#include <algorithm>
#include <cctype>

namespace dv {

namespace {

std::string minuscolo(std::string_view s) {
    std::string out(s);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

std::string_view senzaSpazi(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t'))
        s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r'))
        s.remove_suffix(1);
    return s;
}

// A decimal or hexadecimal count of at most 15 digits; -1 for anything else.
int64_t numero(std::string_view s, int base) {
    if (s.empty() || s.size() > 15) return -1;
    int64_t n = 0;
    for (char c : s) {
        int d = -1;
        if (c >= '0' && c <= '9')
            d = c - '0';
        else if (base == 16 && c >= 'a' && c <= 'f')
            d = c - 'a' + 10;
        else if (base == 16 && c >= 'A' && c <= 'F')
            d = c - 'A' + 10;
        if (d < 0) return -1;
        n = n * base + d;
    }
    return n;
}

} // namespace

RispostaHttp::Stato RispostaHttp::analizzaTesta() {
    // 1. The status line: "HTTP/1.x NNN reason".
    const size_t fine = m_buffer.find("\r\n");
    const std::string_view riga = std::string_view(m_buffer).substr(0, fine);
    if (riga.size() < 12 || riga.substr(0, 7) != "HTTP/1." || riga[8] != ' ') return Stato::Malformata;
    m_status = static_cast<int>(numero(riga.substr(9, 3), 10));
    if (m_status < 100) return Stato::Malformata;
    // 2. The headers that frame the body or send us elsewhere.
    m_length = -1;
    m_chunked = false;
    m_location.clear();
    size_t pos = fine + 2;
    while (pos < m_buffer.size()) {
        size_t nl = m_buffer.find("\r\n", pos);
        if (nl == std::string::npos) nl = m_buffer.size();
        const std::string_view h = std::string_view(m_buffer).substr(pos, nl - pos);
        pos = nl + 2;
        const size_t colon = h.find(':');
        if (colon == std::string_view::npos) continue;
        const std::string nome = minuscolo(senzaSpazi(h.substr(0, colon)));
        const std::string_view valore = senzaSpazi(h.substr(colon + 1));
        if (nome == "content-length") {
            const int64_t n = numero(valore, 10);
            if (n < 0 || (m_length >= 0 && n != m_length)) return Stato::Malformata;
            m_length = n;
        } else if (nome == "transfer-encoding") {
            m_chunked = minuscolo(valore).find("chunked") != std::string::npos;
        } else if (nome == "location") {
            m_location = std::string(valore);
        }
    }
    m_buffer.clear();
    // A length and chunks both: two ways to frame one body, which could be read apart.
    if (m_chunked && m_length >= 0) return Stato::Malformata;
    // 3. How the body ends: 1xx answers are followed by the real one; 204 and 304 have none.
    if (m_status < 200) return Stato::Testa;
    if (m_status == 204 || m_status == 304) return Stato::Completa;
    if (m_chunked) {
        m_chunk = Chunk::Riga;
        return Stato::Corpo;
    }
    if (m_length >= 0) {
        m_resto = m_length;
        return m_length == 0 ? Stato::Completa : Stato::Corpo;
    }
    m_finoAllaChiusura = true;
    return Stato::Corpo;
}

bool RispostaHttp::prendi(std::string_view& dati, std::string& corpo) {
    const size_t n = static_cast<size_t>(std::min<int64_t>(m_resto, static_cast<int64_t>(dati.size())));
    corpo.append(dati.substr(0, n));
    dati.remove_prefix(n);
    m_resto -= static_cast<int64_t>(n);
    return m_resto == 0;
}

RispostaHttp::Stato RispostaHttp::corpoChunk(std::string_view& dati, std::string& corpo) {
    while (!dati.empty()) {
        if (m_chunk == Chunk::Dati) {
            if (prendi(dati, corpo)) m_chunk = Chunk::FineDati;
            continue;
        }
        // A line: the chunk's size, the CR LF after its data, or a trailer.
        const size_t nl = dati.find('\n');
        m_buffer.append(dati.substr(0, nl == std::string_view::npos ? dati.size() : nl + 1));
        dati.remove_prefix(nl == std::string_view::npos ? dati.size() : nl + 1);
        if (m_buffer.size() > MaxRigaChunk) return Stato::Malformata;
        if (nl == std::string_view::npos) break;
        const std::string_view riga = senzaSpazi(std::string_view(m_buffer).substr(0, m_buffer.size() - 1));
        if (m_chunk == Chunk::Riga) {
            const int64_t n = numero(senzaSpazi(riga.substr(0, riga.find(';'))), 16);
            if (n < 0) return Stato::Malformata;
            m_resto = n;
            m_chunk = n == 0 ? Chunk::Trailer : Chunk::Dati;
        } else if (m_chunk == Chunk::FineDati) {
            if (!riga.empty()) return Stato::Malformata;
            m_chunk = Chunk::Riga;
        } else if (riga.empty()) {
            m_buffer.clear();
            return Stato::Completa; // the empty line after the last chunk's trailers
        }
        m_buffer.clear();
    }
    return Stato::Corpo;
}

RispostaHttp::Stato RispostaHttp::aggiungi(std::string_view dati, std::string& corpo) {
    while (!dati.empty() && (m_stato == Stato::Testa || m_stato == Stato::Corpo)) {
        if (m_stato == Stato::Testa) {
            // The head ends at the first empty line; what follows belongs to the body.
            const size_t prima = m_buffer.size();
            m_buffer.append(dati.substr(0, std::min(dati.size(), MaxTesta + 4 - prima)));
            const size_t fine = m_buffer.find("\r\n\r\n", prima >= 3 ? prima - 3 : 0);
            if (fine == std::string::npos) {
                if (m_buffer.size() > MaxTesta) m_stato = Stato::Malformata;
                return m_stato;
            }
            dati.remove_prefix(fine + 4 - prima);
            m_buffer.resize(fine + 2);
            m_stato = analizzaTesta();
        } else if (m_chunked) {
            m_stato = corpoChunk(dati, corpo);
        } else if (m_finoAllaChiusura) {
            corpo.append(dati);
            dati = {};
        } else {
            if (prendi(dati, corpo)) m_stato = Stato::Completa;
        }
    }
    return m_stato;
}

RispostaHttp::Stato RispostaHttp::chiusa() {
    if (m_stato == Stato::Corpo && m_finoAllaChiusura) m_stato = Stato::Completa;
    return m_stato;
}

} // namespace dv
