#include "ArchivioLetterale.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <algorithm>
#include <cstring>
#include <fstream>
#include <sstream>
#include <vector>

namespace dv::reference {

namespace {

std::string Replace(std::string s, const std::string& what, const std::string& with) {
    size_t pos = 0;
    while ((pos = s.find(what, pos)) != std::string::npos) {
        s.replace(pos, what.size(), with);
        pos += with.size();
    }
    return s;
}

std::vector<std::string> Split(const std::string& s, char sep) {
    std::vector<std::string> parts;
    std::string cur;
    for (char c : s) {
        if (c == sep) {
            parts.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
    }
    parts.push_back(cur);
    return parts;
}

// Strict conversion: sign and digits only. 0 or the error number.
int Converti(const std::string& t, long lo, long hi, long& out) {
    if (t.empty() || t == "+" || t == "-") return 13;
    for (size_t i = 0; i < t.size(); ++i)
        if (!std::isdigit(static_cast<unsigned char>(t[i])) && !(i == 0 && (t[i] == '+' || t[i] == '-')))
            return 13;
    if (t.size() > 12) return 6;
    const long v = std::stol(t);
    if (v < lo || v > hi) return 6;
    out = v;
    return 0;
}

// The lenient value: the longest leading number (with an exponent) or 0, rounded to even.
int Lenient(const std::string& t, long& out) {
    std::string numero;
    size_t i = 0;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) numero += t[i++];
    while (i < t.size() && std::isdigit(static_cast<unsigned char>(t[i])))
        numero += t[i++];
    if (i + 1 < t.size() && std::strchr("eEdD", t[i])) {
        std::string esp = "e";
        size_t j = i + 1;
        if (t[j] == '+' || t[j] == '-') esp += t[j++];
        bool cifre = false;
        while (j < t.size() && std::isdigit(static_cast<unsigned char>(t[j]))) {
            esp += t[j++];
            cifre = true;
        }
        if (cifre) numero += esp;
    }
    double v = 0;
    if (numero.size() > 0 && std::isdigit(static_cast<unsigned char>(numero.back())))
        v = std::strtod(numero.c_str(), nullptr);
    const double r = std::nearbyint(v);
    if (!(r >= 0 && r <= 255)) return 6;
    out = static_cast<long>(r);
    return 0;
}

} // namespace

ConversioneLetterale ConvertiLetterale(const std::string& sorgente) {
    ConversioneLetterale r;
    if (sorgente.empty()) return r;
    // The lines, each ended by CR LF, LF or CR (the last one may have no end).
    std::vector<std::string> righe;
    for (size_t i = 0; i < sorgente.size();) {
        const size_t fine = std::min(sorgente.find('\r', i), sorgente.find('\n', i));
        if (fine == std::string::npos) {
            righe.push_back(sorgente.substr(i));
            break;
        }
        righe.push_back(sorgente.substr(i, fine - i));
        i = fine + (sorgente.compare(fine, 2, "\r\n") == 0 ? 2 : 1);
    }
    int64_t numeroRiga = 0;
    for (std::string riga : righe) {
        ++numeroRiga;
        riga = Replace(riga, "\t", " ");
        riga = Replace(riga, "-", " ");
        riga = Replace(riga, ",", " ");
        riga = Replace(riga, ";", " ");
        riga = Replace(riga, ".", " ");
        riga = Replace(riga, "|", " ");
        const std::vector<std::string> campi = Split(riga, ' ');
        if (campi.size() != 24) continue;
        std::string record = (campi[0] + std::string(10, ' ')).substr(0, 10);
        long v = 0;
        for (int k = 1; k <= 23; ++k) {
            const int e = k == 1    ? Converti(campi[1], -32768, 32767, v)
                          : k <= 21 ? Converti(campi[static_cast<size_t>(k)], 0, 255, v)
                                    : Lenient(campi[static_cast<size_t>(k)], v);
            if (e) {
                r.riga = numeroRiga;
                r.campo = k;
                r.errore = e;
                return r;
            }
            if (k == 1) {
                const auto u = static_cast<uint16_t>(static_cast<int16_t>(v));
                record += static_cast<char>(u % 256);
                record += static_cast<char>(u / 256);
            } else {
                record += static_cast<char>(v);
            }
        }
        r.records += record;
    }
    return r;
}

ArrayEstrazioni CaricaLetterale(const std::string& path) {
    ArrayEstrazioni a(5001);
    size_t n = 0;
    std::ifstream in(path, std::ios::binary);
    char buf[34];
    while (in.read(buf, 34)) {
        int g = 0, m = 0, y = 0;
        char s1 = 0, s2 = 0;
        const std::string data(buf, 10);
        bool ok = std::sscanf(data.c_str(), "%2d%c%2d%c%4d", &g, &s1, &m, &s2, &y) == 5 && s1 == '/' &&
                  s2 == '/' && std::isdigit(static_cast<unsigned char>(data[0])) &&
                  std::isdigit(static_cast<unsigned char>(data[1])) &&
                  std::isdigit(static_cast<unsigned char>(data[3])) &&
                  std::isdigit(static_cast<unsigned char>(data[4]));
        for (int i = 6; i < 10 && ok; ++i)
            ok = std::isdigit(static_cast<unsigned char>(data[static_cast<size_t>(i)]));
        const int giorni[] = {
            31, (y % 4 == 0 && y % 100 != 0) || y % 400 == 0 ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30,
            31};
        ok = ok && y >= 100 && m >= 1 && m <= 12 && g >= 1 && g <= giorni[m - 1];
        if (!ok) continue;
        ++n;
        Estrazione& e = a[n];
        std::memcpy(e.Data.data(), buf, 10);
        e.Concorso = static_cast<int16_t>(static_cast<uint16_t>(static_cast<unsigned char>(buf[10]) +
                                                                256 * static_cast<unsigned char>(buf[11])));
        for (int i = 1; i <= 20; ++i)
            e.Numeri[static_cast<size_t>(i)] = static_cast<unsigned char>(buf[11 + i]);
        e.NumeroOro = static_cast<unsigned char>(buf[32]);
        e.DoppioOro = static_cast<unsigned char>(buf[33]);
        if (n == a.size() - 1) a.resize(a.size() + 5000);
    }
    a.resize((n == 0 ? 1 : n) + 1);
    if (n == 0) a[1] = Estrazione{};
    return a;
}

} // namespace dv::reference
