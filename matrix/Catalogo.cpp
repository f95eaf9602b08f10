#include "matrix/Catalogo.h"

#include "core/Cartelle.h"
#include "core/Helpers.h"
#include "system_files/ErroreEsecuzione.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <system_error>

namespace dv {

namespace fs = std::filesystem;

namespace {

constexpr double PrimoGiorno = -657434;  // 1 January 100
constexpr double UltimoGiorno = 2958465; // 31 December 9999

// Days since 1970-01-01 of a civil date, and back (proleptic Gregorian).
long GiorniDaCivile(long y, long m, long d) {
    y -= m <= 2;
    const long era = (y >= 0 ? y : y - 399) / 400;
    const long yoe = y - era * 400;
    const long doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

void CivileDaGiorni(long z, long& y, long& m, long& d) {
    z += 719468;
    const long era = (z >= 0 ? z : z - 146096) / 146097;
    const long doe = z - era * 146097;
    const long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    y = yoe + era * 400;
    const long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const long mp = (5 * doy + 2) / 153;
    d = doy - (153 * mp + 2) / 5 + 1;
    m = mp < 10 ? mp + 3 : mp - 9;
    if (m <= 2) ++y;
}

void Civile(double seriale, long& y, long& m, long& d) {
    if (!std::isfinite(seriale)) seriale = PrimoGiorno;
    seriale = std::clamp(seriale, PrimoGiorno, UltimoGiorno);
    CivileDaGiorni(static_cast<long>(std::floor(seriale)) - 25569, y, m, d);
}

bool HaEstensione(const std::string& name, const std::string& ext) {
    if (name.size() < ext.size()) return false;
    for (size_t i = 0; i < ext.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(name[name.size() - ext.size() + i])) !=
            std::tolower(static_cast<unsigned char>(ext[i])))
            return false;
    return true;
}

} // namespace

double OggiSeriale() {
    const std::time_t t = std::time(nullptr);
    std::tm tm{};
#ifdef _WIN32
    localtime_s(&tm, &t);
#else
    localtime_r(&t, &tm);
#endif
    return SerialeDaData(tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday);
}

double SerialeDaData(int anno, int mese, int giorno) {
    return static_cast<double>(GiorniDaCivile(anno, mese, giorno) + 25569);
}

std::string DataYYYYMMDD(double seriale) {
    long y, m, d;
    Civile(seriale, y, m, d);
    char buf[32];
    std::snprintf(buf, sizeof buf, "%04ld%02ld%02ld", y, m, d);
    return buf;
}

std::string DataGGMMAAAA(double seriale) {
    long y, m, d;
    Civile(seriale, y, m, d);
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02ld/%02ld/%04ld", d, m, y);
    return buf;
}

bool SerialeDaYYYYMMDD(const std::string& testo, double& seriale) {
    if (testo.size() != 8 ||
        !std::all_of(testo.begin(), testo.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return false;
    const int y = std::stoi(testo.substr(0, 4));
    const int m = std::stoi(testo.substr(4, 2));
    const int d = std::stoi(testo.substr(6, 2));
    if (y < 100 || m < 1 || m > 12 || d < 1 || d > 31) return false;
    seriale = SerialeDaData(y, m, d);
    return DataYYYYMMDD(seriale) == testo;
}

std::vector<std::string> ListMatrixFiles(const std::string& folder, const std::string& pattern) {
    const std::string ext = pattern.size() > 1 && pattern[0] == '*' ? pattern.substr(1) : pattern;
    std::vector<std::string> out;
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        std::error_code e2;
        if (!it->is_regular_file(e2)) continue;
        const std::string name = it->path().filename().string();
        if (HaEstensione(name, ext)) out.push_back(name);
    }
    if (out.empty()) out.emplace_back();
    return out;
}

MATRIX_CATALOG_ENTRY VoceCatalogo(const std::string& folder, const std::string& name, double oggi) {
    MATRIX_CATALOG_ENTRY e;
    e.FILE_NAME = name;
    std::vector<uint8_t> data;
    try {
        data = LeggiFileMatrice((fs::path(folder) / name).string());
    } catch (const ErroreEsecuzione&) {
    }
    static_cast<MatrixHeader&>(e) = LeggiIntestazione(data.data(), data.size());
    // A file shorter than its header, or than the body its header promises, is not sound.
    const bool integro = CorpoCompleto(e, data.size());
    e.SIGNATURE_OK = integro && e.MATRIX_SIGNATURE == FirmaMatrice ? Vero : Falso;
    e.CRC_OK = integro && SigilloValido(data.data(), data.size()) ? Vero : Falso;
    const std::string oggiTesto = DataYYYYMMDD(oggi);
    e.EXPIRED = DataYYYYMMDD(e.VALID_TO) < oggiTesto ? Vero : Falso;
    e.STARTED = DataYYYYMMDD(e.VALID_FROM) <= oggiTesto ? Vero : Falso;
    return e;
}

std::vector<MATRIX_CATALOG_ENTRY> BuildMatrixCatalog(const std::string& appDir, uint8_t n, int lenColonna,
                                                     double oggi) {
    const bool all = n == 0;
    const std::string folder = PercorsoIn(appDir, {"matrici"});
    std::vector<MATRIX_CATALOG_ENTRY> catalogo;
    for (const std::string& name : ListMatrixFiles(folder, "*.mqvn")) {
        if (name.empty()) continue;
        MatrixHeader h;
        try {
            h = ReadMatrixHeader((fs::path(folder) / name).string());
        } catch (const ErroreEsecuzione&) {
            continue; // gone since the folder was listed
        }
        if (!all && !(h.NUMBERS_OF_MATRIX_V == n && h.LENGTH_OF_COLUMN_K == lenColonna)) continue;
        catalogo.push_back(VoceCatalogo(folder, name, oggi));
    }
    if (!all) {
        MATRIX_CATALOG_ENTRY e;
        e.FILE_NAME = NomeMatricePersonalizzata;
        e.VALID_FROM = oggi;
        e.VALID_TO = oggi;
        e.DESCRIPTION = "Premi il pulsante File TXT e carica la tua matrice";
        e.AUTHOR = "NORVANE";
        e.SIGNATURE_OK = Vero;
        e.CRC_OK = Vero;
        e.EXPIRED = Falso;
        e.STARTED = Falso;
        catalogo.push_back(std::move(e));
    }
    SortMatrixCatalog(catalogo);
    return catalogo;
}

void SortMatrixCatalog(std::vector<MATRIX_CATALOG_ENTRY>& catalogo) {
    const size_t n = catalogo.size();
    for (size_t i = 0; i < n; ++i)
        for (size_t j = i + 1; j < n; ++j)
            if (catalogo[i].NUMBERS_OF_MATRIX_V > catalogo[j].NUMBERS_OF_MATRIX_V)
                std::swap(catalogo[i], catalogo[j]);
}

std::string PadField(int64_t value, int width) {
    // The mask has width digit places, "0" then "#", grouped by three with the thousands
    // separator the program shows everywhere; a group mark never leads, so widths up to 3 have
    // none. A number longer than the mask still shows whole.
    std::string out = width > 3 ? FormatIntero(static_cast<double>(value)) : std::to_string(value);
    if (static_cast<int>(out.size()) < width)
        out.insert(0, static_cast<size_t>(width - static_cast<int>(out.size())), ' ');
    return out;
}

std::string PadField(const std::string& value, int width) {
    if (!value.empty() && value.find_first_not_of("0123456789") == std::string::npos && value.size() < 19)
        return PadField(static_cast<int64_t>(std::stoll(value)), width);
    std::string out = value;
    if (static_cast<int>(out.size()) < width) out.append(static_cast<size_t>(width) - out.size(), ' ');
    return out;
}

std::string RigaCatalogo(const MATRIX_CATALOG_ENTRY& e) {
    std::string r = " ";
    r += PadField(e.NUMBERS_OF_MATRIX_V, 2) + " | ";
    r += PadField(e.LENGTH_OF_COLUMN_K, 2) + " | ";
    r += PadField(e.GARANTY_T, 2) + " | ";
    r += PadField(e.PICK_UP_NUMBERS_M, 2) + " | ";
    r += PadField(e.FIXED_NUMBERS_OF_MATRIX_F, 2) + " | ";
    r += PadField(e.COLUMNS_OF_MATRIX_C, 6) + " | ";
    r += e.PERCENTAGE_COVER;
    return r;
}

} // namespace dv
