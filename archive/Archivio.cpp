#include "archive/Archivio.h"

#include "core/Helpers.h"
#include "core/Ui.h"
#include "system_files/ErroreEsecuzione.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace dv {

std::string Estrazione::dataTesto() const {
    std::string s(Data.data(), Data.size());
    while (!s.empty() && (s.back() == ' ' || s.back() == '\0'))
        s.pop_back();
    return s;
}

namespace {

bool Cifre(std::string_view t, size_t from, size_t count, int& value) {
    value = 0;
    for (size_t i = from; i < from + count; ++i) {
        if (t[i] < '0' || t[i] > '9') return false;
        value = value * 10 + (t[i] - '0');
    }
    return true;
}

constexpr int GiorniNelMese(int mese, int anno) {
    constexpr int giorni[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool bisestile = (anno % 4 == 0 && anno % 100 != 0) || anno % 400 == 0;
    return mese == 2 && bisestile ? 29 : giorni[mese - 1];
}

} // namespace

bool IsDate(std::string_view text) {
    if (text.size() < 10 || text[2] != '/' || text[5] != '/') return false;
    int g = 0, m = 0, a = 0;
    if (!Cifre(text, 0, 2, g) || !Cifre(text, 3, 2, m) || !Cifre(text, 6, 4, a)) return false;
    for (size_t i = 10; i < text.size(); ++i)
        if (text[i] != ' ') return false;
    return a >= 100 && m >= 1 && m <= 12 && g >= 1 && g <= GiorniNelMese(m, a);
}

bool ArchivioVuoto(const ArrayEstrazioni& a) {
    return UBound(a) <= 1 && (UBound(a) < 1 || !IsDate({a[1].Data.data(), a[1].Data.size()}));
}

std::string RigaEstrazione(const Estrazione& e) {
    char concorso[16];
    // "000" of a negative number keeps its sign before the three digits.
    std::snprintf(concorso, sizeof concorso, e.Concorso < 0 ? "-%03d" : "%03d",
                  e.Concorso < 0 ? -e.Concorso : e.Concorso);
    auto oro = [](uint8_t v) {
        char b[8] = "  ";
        if (v > 0) std::snprintf(b, sizeof b, "%02d", v);
        return std::string(b);
    };
    std::string riga = "  ";
    riga.append(e.Data.data(), e.Data.size());
    riga += "   |   ";
    riga += concorso;
    riga += "   |   ";
    riga += NumeriToString(e.Numeri.data() + 1, 20, 3);
    riga += "   |        ";
    riga += oro(e.NumeroOro);
    riga += "       |      ";
    riga += oro(e.DoppioOro);
    riga.append(24, ' ');
    return riga;
}

std::array<char, DimensioneRecordEstrazione> RecordEstrazione(const Estrazione& e) {
    std::array<char, DimensioneRecordEstrazione> r{};
    std::memcpy(r.data(), e.Data.data(), 10);
    const auto concorso = static_cast<uint16_t>(e.Concorso);
    r[10] = static_cast<char>(concorso & 0xFF);
    r[11] = static_cast<char>(concorso >> 8);
    for (int i = 1; i <= 20; ++i)
        r[static_cast<size_t>(11 + i)] = static_cast<char>(e.Numeri[static_cast<size_t>(i)]);
    r[32] = static_cast<char>(e.NumeroOro);
    r[33] = static_cast<char>(e.DoppioOro);
    return r;
}

Estrazione EstrazioneDaRecord(const char* r) {
    Estrazione e;
    std::memcpy(e.Data.data(), r, 10);
    const auto* u = reinterpret_cast<const unsigned char*>(r);
    e.Concorso = static_cast<int16_t>(static_cast<uint16_t>(u[10] | (u[11] << 8)));
    for (int i = 1; i <= 20; ++i)
        e.Numeri[static_cast<size_t>(i)] = u[11 + i];
    e.NumeroOro = u[32];
    e.DoppioOro = u[33];
    return e;
}

ArrayEstrazioni LoadArchivioDAT(const std::string& path, const std::string& archivioDir, Ui& ui) {
    constexpr size_t Passo = 5000;
    // 1. The result with bounds 1..5000 (element 0 unused).
    ArrayEstrazioni risultato(Passo + 1);
    std::FILE* f = nullptr;
    try {
        // 2. The archive folder, made where missing.
        std::error_code ec;
        if (!archivioDir.empty() && !std::filesystem::is_directory(archivioDir, ec))
            std::filesystem::create_directories(archivioDir, ec);
        // 3. Open for read and write; a missing file is created empty.
        if (std::filesystem::is_directory(path, ec))
            throw ErroreEsecuzione(75, "Path/File access error", cause::CartellaNonFile);
        f = std::fopen(path.c_str(), "rb");
        if (!f) {
            f = std::fopen(path.c_str(), "wb+");
            if (!f) {
                const int errore = errno;
                if (!std::filesystem::exists(std::filesystem::path(path).parent_path(), ec))
                    throw ErroreEsecuzione{76, "Path not found"};
                throw errori::Salvataggio(errore);
            }
        }
        ui.setBusy(true);
        // Room for every whole record of the file at once, so that the steps of growth below
        // never copy the array.
        if (const auto size = std::filesystem::file_size(path, ec); !ec)
            risultato.reserve(static_cast<size_t>(size / DimensioneRecordEstrazione) + Passo + 1);
        // 5. Record by record; only the date is tested, the numbers are taken as they stand. The
        // array grows by 5000 elements whenever the count reaches its upper bound.
        size_t conta = 0;
        std::vector<char> blocco(DimensioneRecordEstrazione * 4096);
        size_t resto = 0;
        for (;;) {
            const size_t letti = std::fread(blocco.data() + resto, 1, blocco.size() - resto, f);
            const size_t disponibili = resto + letti;
            size_t pos = 0;
            for (; pos + DimensioneRecordEstrazione <= disponibili; pos += DimensioneRecordEstrazione) {
                const char* r = blocco.data() + pos;
                if (!IsDate({r, 10})) continue;
                ++conta;
                risultato[conta] = EstrazioneDaRecord(r);
                if (conta == risultato.size() - 1) risultato.resize(risultato.size() + Passo);
            }
            resto = disponibili - pos;
            std::memmove(blocco.data(), blocco.data() + pos, resto);
            if (letti == 0) break;
        }
        if (std::ferror(f)) throw errori::Lettura();
        // 6. and 7. The pointer back, the file closed, the array cut to the count (one blank at least).
        ui.setBusy(false);
        std::fclose(f);
        f = nullptr;
        risultato.resize(std::max<size_t>(conta, 1) + 1);
        if (conta == 0) risultato[1] = Estrazione{};
        return risultato;
    } catch (const ErroreEsecuzione& e) {
        ui.setBusy(false);
        if (f) std::fclose(f);
        const bool conPercorso = e.numero() == 75 || e.numero() == 76;
        ui.messageBox("Error " + std::to_string(e.numero()) + " (" + e.descrizione(ui) +
                          (conPercorso ? " --> " + path : std::string()) +
                          ") in procedure LoadArchivioDAT of Form frmUpdate",
                      "", BoxIcon::None);
        return ArrayEstrazioni(2);
    } catch (const std::bad_alloc&) {
        ui.setBusy(false);
        if (f) std::fclose(f);
        ui.messageBox("Error 7 (Out of memory) in procedure LoadArchivioDAT of Form frmUpdate", "",
                      BoxIcon::None);
        return ArrayEstrazioni(2);
    }
}

} // namespace dv
