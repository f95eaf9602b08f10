#include "settings/classINI.h"

#include "settings/Ansi.h"
#include "settings/FileTesto.h"

#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

namespace dv {

namespace {

constexpr std::string_view Blanks = " \t";

std::string_view trim(std::string_view s) {
    const size_t a = s.find_first_not_of(Blanks);
    if (a == std::string_view::npos) return {};
    const size_t b = s.find_last_not_of(Blanks);
    return s.substr(a, b - a + 1);
}

// One line of the file, without its line end, and the line end it had.
struct Riga {
    std::string testo;
    std::string fine;
};

std::vector<Riga> righe(const std::string& content) {
    std::vector<Riga> out;
    size_t pos = 0;
    while (pos < content.size()) {
        size_t nl = content.find('\n', pos);
        if (nl == std::string::npos) {
            // A last line without LF: a CR at its end is its line end, as the reader takes it, so
            // a line written after it does not leave that CR inside its value.
            std::string testo = content.substr(pos);
            if (!testo.empty() && testo.back() == '\r') testo.pop_back();
            out.push_back({std::move(testo), ""});
            break;
        }
        size_t end = nl;
        std::string fine = "\n";
        if (end > pos && content[end - 1] == '\r') {
            --end;
            fine = "\r\n";
        }
        out.push_back({content.substr(pos, end - pos), fine});
        pos = nl + 1;
    }
    return out;
}

// The name of a section line "[name]", or nothing for any other line.
std::optional<std::string_view> sezione(std::string_view line) {
    line = trim(line);
    if (line.empty() || line.front() != '[') return std::nullopt;
    const size_t close = line.find(']');
    return trim(line.substr(1, close == std::string_view::npos ? std::string_view::npos : close - 1));
}

bool commento(std::string_view line) {
    line = trim(line);
    return !line.empty() && line.front() == ';';
}

// The key of a line "key=value", or nothing when the line has no "=".
std::optional<std::string_view> chiave(std::string_view line) {
    if (commento(line)) return std::nullopt;
    const size_t eq = line.find('=');
    if (eq == std::string_view::npos) return std::nullopt;
    return trim(line.substr(0, eq));
}

std::string_view valore(std::string_view line) {
    std::string_view v = trim(line.substr(line.find('=') + 1));
    if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front())
        v = v.substr(1, v.size() - 2);
    return v;
}

// Index of the first line of the first section named section, or nothing.
std::optional<size_t> trovaSezione(const std::vector<Riga>& rs, std::string_view section) {
    for (size_t i = 0; i < rs.size(); ++i) {
        const auto s = sezione(rs[i].testo);
        if (s && UgualiSenzaMaiuscole(*s, section)) return i;
    }
    return std::nullopt;
}

} // namespace

std::string classINI::leggi(const std::string& path, std::string_view section, std::string_view key,
                            std::string_view def, size_t bufferSize) {
    const std::optional<std::string> content = LeggiFileTesto(path);
    if (!content) return std::string(def);
    const std::string sec = Utf8ToAnsi(section);
    const std::string k = Utf8ToAnsi(key);
    // One pass over the lines, without copying them: this runs for every text of every window.
    const std::string_view all(*content);
    bool inside = false;
    for (size_t pos = 0; pos < all.size();) {
        size_t nl = all.find('\n', pos);
        if (nl == std::string_view::npos) nl = all.size();
        std::string_view line = all.substr(pos, nl - pos);
        pos = nl + 1;
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (const auto s = sezione(line)) {
            if (inside) break; // the first section of that name is the one read
            inside = UgualiSenzaMaiuscole(*s, sec);
            continue;
        }
        if (!inside) continue;
        const auto found = chiave(line);
        if (!found || !UgualiSenzaMaiuscole(*found, k)) continue;
        // A NUL ends the line: the value before it is trimmed and unquoted as any other.
        std::string_view v = valore(line.substr(0, line.find('\0')));
        if (bufferSize > 0 && v.size() > bufferSize - 1) v = v.substr(0, bufferSize - 1);
        return AnsiToUtf8(v);
    }
    return std::string(def);
}

std::string classINI::getProperty(std::string_view section, std::string_view key, std::string_view def) const {
    return leggi(FileINI, section, key, def, BufferLettura);
}

bool classINI::setProperty(std::string_view section, std::string_view key, std::string_view value) const {
    const std::string sec = Utf8ToAnsi(section);
    const std::string k = Utf8ToAnsi(key);
    std::string v = Utf8ToAnsi(value);
    // A line end inside the value would break the file's form.
    for (char& c : v)
        if (c == '\r' || c == '\n') c = ' ';
    // A value that would not read back as it is (blanks at either end, which reading trims, or a
    // pair of quotes around it, which reading takes off) goes in double quotes.
    if (valore("=" + v) != v) v = '"' + v + '"';

    const std::optional<std::string> content = LeggiFileTesto(FileINI);
    // A file that is there but cannot be read is never replaced by one that holds only this key.
    std::error_code ec;
    if (!content && std::filesystem::exists(FileINI, ec)) return false;
    std::vector<Riga> rs = content ? righe(*content) : std::vector<Riga>{};
    std::string eol = FineRigaNativa;
    for (const Riga& r : rs)
        if (!r.fine.empty()) {
            eol = r.fine;
            break;
        }
    if (!rs.empty() && rs.back().fine.empty() && !rs.back().testo.empty()) rs.back().fine = eol;

    const std::string nuova = k + "=" + v;
    const auto start = trovaSezione(rs, sec);
    if (!start) {
        if (!rs.empty() && !trim(rs.back().testo).empty()) rs.push_back({"", eol});
        rs.push_back({"[" + sec + "]", eol});
        rs.push_back({nuova, eol});
    } else {
        size_t after = *start + 1; // behind the last line of the section that holds something
        bool replaced = false;
        for (size_t i = *start + 1; i < rs.size() && !sezione(rs[i].testo); ++i) {
            const auto found = chiave(rs[i].testo);
            if (found && UgualiSenzaMaiuscole(*found, k)) {
                rs[i].testo = nuova;
                replaced = true;
                break;
            }
            if (!trim(rs[i].testo).empty()) after = i + 1;
        }
        if (!replaced) rs.insert(rs.begin() + static_cast<std::ptrdiff_t>(after), Riga{nuova, eol});
    }

    std::string out;
    for (const Riga& r : rs) out += r.testo + r.fine;
    return ScriviFileTesto(FileINI, out);
}

int classINI::getInt(std::string_view section, std::string_view key, int def) const {
    const std::string marker = "\x01";
    const std::string v = getProperty(section, key, marker);
    if (v == marker) return def;
    return static_cast<int>(ValoreIniziale(v));
}

bool classINI::setInt(std::string_view section, std::string_view key, int value) const {
    return setProperty(section, key, std::to_string(value));
}

long long ValoreIniziale(std::string_view text) {
    text = trim(text);
    bool negative = false;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    long long n = 0;
    for (char c : text) {
        if (c < '0' || c > '9') break;
        if (n < 100'000'000'000'000'000LL) n = n * 10 + (c - '0');
    }
    return negative ? -n : n;
}

} // namespace dv
