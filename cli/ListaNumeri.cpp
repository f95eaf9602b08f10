#include "cli/ListaNumeri.h"

#include <algorithm>
#include <charconv>

namespace dv::cli {

namespace {

std::optional<int> Intero(const std::string& s) {
    int v = 0;
    const char* end = s.data() + s.size();
    auto [p, ec] = std::from_chars(s.data(), end, v);
    if (s.empty() || ec != std::errc() || p != end) return std::nullopt;
    return v;
}

std::string Tra(int lo, int hi) { return " (" + std::to_string(lo) + ".." + std::to_string(hi) + ")"; }

} // namespace

std::optional<std::vector<int>> LeggiLista(const std::string& text, int lo, int hi, std::string& error) {
    std::vector<int> out;
    size_t start = 0;
    while (start <= text.size()) {
        const size_t comma = std::min(text.find(',', start), text.size());
        const std::string item = text.substr(start, comma - start);
        const size_t dash = item.find('-', 1);
        const auto a = Intero(dash == std::string::npos ? item : item.substr(0, dash));
        const auto b = dash == std::string::npos ? a : Intero(item.substr(dash + 1));
        if (!a || !b || *a > *b) {
            error = "'" + item + "' is neither a number nor a range A-B";
            return std::nullopt;
        }
        if (*a < lo || *b > hi) {
            error = "'" + item + "' is out of range" + Tra(lo, hi);
            return std::nullopt;
        }
        for (int n = *a; n <= *b; ++n) out.push_back(n);
        start = comma + 1;
    }
    std::sort(out.begin(), out.end());
    out.erase(std::unique(out.begin(), out.end()), out.end());
    return out;
}

std::optional<std::pair<int, int>> LeggiIntervallo(const std::string& text, int lo, int hi, std::string& error) {
    const size_t colon = text.find(':');
    const auto a = colon == std::string::npos ? std::nullopt : Intero(text.substr(0, colon));
    const auto b = colon == std::string::npos ? std::nullopt : Intero(text.substr(colon + 1));
    if (!a || !b || *a > *b) {
        error = "'" + text + "' is not a range MIN:MAX";
        return std::nullopt;
    }
    if (*a < lo || *b > hi) {
        error = "'" + text + "' is out of range" + Tra(lo, hi);
        return std::nullopt;
    }
    return std::make_pair(*a, *b);
}

} // namespace dv::cli
