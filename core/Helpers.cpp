#include "core/Helpers.h"

#include "core/Engine.h"

#include <chrono>
#include <cmath>
#include <ctime>
#include <random>
#include <vector>

namespace dv {

double Fattoriale(int k) {
    double f = 1.0;
    for (int i = 2; i <= k; ++i) f *= i;
    return f;
}

double ColonneIntegrali(int n, int k) {
    if (k < 0 || n < k) return 0.0;
    double p = 1.0;
    for (int i = n - k + 1; i <= n; ++i) p *= i;
    return p / Fattoriale(k);
}

std::string FormatIntero(double value, char sep) {
    const bool negative = value < 0;
    const double v = std::nearbyint(std::fabs(value));
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.0f", v);
    std::string digits(buf), out;
    const int n = static_cast<int>(digits.size());
    for (int i = 0; i < n; ++i) {
        out += digits[static_cast<size_t>(i)];
        const int left = n - 1 - i;
        if (left > 0 && left % 3 == 0) out += sep;
    }
    if (negative) out.insert(out.begin(), '-');
    return out;
}

std::string NumeriToString(const uint8_t* values, int count, int blanks) {
    std::string out;
    const std::string gap(static_cast<size_t>(blanks < 0 ? 0 : blanks), ' ');
    for (int i = 0; i < count; ++i) {
        if (values[i] == 0) continue;
        if (!out.empty()) out += gap;
        char buf[8];
        std::snprintf(buf, sizeof buf, "%02d", values[i]);
        out += buf;
    }
    return out;
}

std::string MaskToString(int32_t mask, int len) {
    std::string out;
    for (int i = 0; i <= len && i < 31; ++i) {
        if (mask & (int32_t{1} << i)) {
            char buf[8];
            std::snprintf(buf, sizeof buf, "%02d ", i);
            out += buf;
        }
    }
    while (!out.empty() && out.back() == ' ') out.pop_back();
    return out;
}

std::string DataToYYYYMMDD(double date) {
    // Days since 30 December 1899 to a civil date (proleptic Gregorian).
    const long days = static_cast<long>(std::floor(date)) - 25569; // days since 1970-01-01
    long z = days + 719468;
    const long era = (z >= 0 ? z : z - 146096) / 146097;
    const long doe = z - era * 146097;
    const long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    long y = yoe + era * 400;
    const long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const long mp = (5 * doy + 2) / 153;
    const long d = doy - (153 * mp + 2) / 5 + 1;
    const long m = mp < 10 ? mp + 3 : mp - 9;
    if (m <= 2) ++y;
    char buf[64];
    std::snprintf(buf, sizeof buf, "%ld%02ld%02ld", y, m, d);
    return buf;
}

void OrdinaColonna(uint8_t* col, int len) {
    for (int i = 0; i < len - 1; ++i)
        for (int j = i + 1; j < len; ++j)
            if (col[j] < col[i]) std::swap(col[i], col[j]);
}

namespace {
char Separatore(Ui& ui, std::string_view key, char predefinito) {
    const std::string s = key == "0221" ? ui.Lang("0221") : ui.Lang("0222");
    return s.size() == 1 ? s[0] : predefinito;
}
} // namespace

char SeparatoreMigliaia(Ui& ui) { return Separatore(ui, "0221", '.'); }
char SeparatoreDecimali(Ui& ui) { return Separatore(ui, "0222", ','); }

std::string FormatDecimale(double value, char migliaia, char decimali) {
    const double cents = std::nearbyint(std::fabs(value) * 100.0);
    const double whole = std::floor(cents / 100.0);
    char buf[8];
    std::snprintf(buf, sizeof buf, "%02d", static_cast<int>(cents - whole * 100.0));
    std::string out = FormatIntero(whole, migliaia);
    out += decimali;
    out += buf;
    if (value < 0 && cents > 0) out.insert(out.begin(), '-');
    return out;
}

std::string TestoCon(std::string text, const std::string& a1, const std::string& a2) {
    for (const auto& [mark, value] : {std::pair<const char*, const std::string*>{"%1", &a1}, {"%2", &a2}}) {
        for (size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + value->size()))
            text.replace(at, 2, *value);
    }
    return text;
}

std::string TestoTempoTrascorso(double elapsed) {
    const int64_t seconds = elapsed > 0 ? static_cast<int64_t>(std::nearbyint(elapsed)) : 0;
    const int64_t days = seconds / 86400;
    const int64_t rest = seconds % 86400;
    char buf[64];
    std::snprintf(buf, sizeof buf, "%lld %s %02lld:%02lld:%02lld", static_cast<long long>(days),
                  days == 1 ? "Day" : "Days", static_cast<long long>(rest / 3600),
                  static_cast<long long>(rest % 3600 / 60), static_cast<long long>(rest % 60));
    return buf;
}

std::string DescrizioneSistema(const Corpo& c, Ui& ui) {
    const bool altra = c.FiltriAND.count() > 0 || c.FiltriOR.count() > 0 || c.consecutivi.CondConsecutivi != 0 ||
                       c.CondizioniDistanza.count() != 0 || c.condizioni.CondFisse != 0 ||
                       c.condizioni.CondPari != 0 || c.condizioni.CondSomma != 0;
    if (c.condizioni.CondRidotto) {
        // Only here does a XOR table count as another condition.
        const bool altraConXor = altra || c.FiltriXOR.count() > 0;
        std::string d = ui.Lang("0018") + " N-" + std::to_string(c.condizioni.ValRidotto);
        return altraConXor ? d + " " + ui.Lang("0060") : d;
    }
    if (c.distanzaMinima.CondDistanzaMinima) {
        std::string d = ui.Lang("0061") + " [" + std::to_string(c.distanzaMinima.ValDistanzaMinima) + "]";
        return altra ? d + " - " + ui.Lang("0060") : d;
    }
    return altra ? ui.Lang("0060") : ui.Lang("0062");
}

void AvvisoLimiteColonne(Ui& ui) {
    std::string testo = ui.Lang("0012");
    testo += '\n';
    testo += ui.Lang("0064");
    testo += FormatContatore(MaxColonne, SeparatoreMigliaia(ui));
    ui.messageBox(testo, ui.Lang("0055"), BoxIcon::Critical);
}

bool MescolaColonne(Corpo& c, Ui& ui, uint32_t seed) {
    if (!ui.questionBox(ui.Lang("0060"), "", BoxIcon::Question)) return false;
    const int32_t n = c.pronostico.NumColonne;
    std::vector<int32_t> perm(static_cast<size_t>(n) + 1);
    for (int32_t i = 0; i <= n; ++i) perm[static_cast<size_t>(i)] = i;
    std::mt19937 gen(seed);
    for (int32_t i = 1; i <= n; ++i) {
        const float r = static_cast<float>(gen() >> 8) * (1.0f / 16777216.0f);
        auto j = static_cast<int32_t>(std::floor(static_cast<double>(n) * r + 1.0));
        if (j > n) j = n;
        std::swap(perm[static_cast<size_t>(i)], perm[static_cast<size_t>(j)]);
        c.Colonne.swapColumns(perm[static_cast<size_t>(i)], perm[static_cast<size_t>(j)], c.LenColonna);
    }
    return true;
}

uint32_t SecondiDaMezzanotte() {
    const std::time_t t = std::time(nullptr);
    std::tm local{};
    localtime_r(&t, &local);
    return static_cast<uint32_t>(local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec);
}

} // namespace dv
