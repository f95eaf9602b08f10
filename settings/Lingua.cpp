#include "settings/Lingua.h"

#include "settings/Ansi.h"
#include "settings/FileTesto.h"
#include "settings/classINI.h"

#include <filesystem>
#include <optional>
#include <system_error>

namespace dv {

namespace fs = std::filesystem;

namespace {

constexpr size_t BufferLingua = 1024;

// The plain scan of a long file; see ReadLanguageValue.
std::string scansiona(const std::string& file, std::string_view key) {
    const std::optional<std::string> content = LeggiFileTesto(file); // a UTF-8 file with a mark comes converted
    if (!content || key.empty()) return {};
    const std::string k = Utf8ToAnsi(key);
    const std::string_view all(*content);
    // Lines end at CR, LF or CR LF, as the platform's text reader takes them.
    for (size_t pos = 0; pos < all.size();) {
        size_t end = all.find_first_of("\r\n", pos);
        if (end == std::string_view::npos) end = all.size();
        const std::string_view line = all.substr(pos, end - pos);
        pos = end + (all.compare(end, 2, "\r\n") == 0 ? 2 : 1);
        if (!IniziaSenzaMaiuscole(line, k)) continue;
        if (line.size() < k.size() + 3) return {};
        std::string_view v = line.substr(k.size() + 1);
        v = v.substr(1, v.size() - 2);
        return AnsiToUtf8(v.substr(0, v.find('\0')));
    }
    return {};
}

std::string unisci(const std::string& dir, const std::string& name) {
    if (dir.empty()) return name;
    const char last = dir.back();
    if (last == '/' || last == SeparatoreCartelle) return dir + name;
    return dir + SeparatoreCartelle + name;
}

} // namespace

std::string ReadLanguageValue(const std::string& file, std::string_view section, std::string_view key) {
    std::error_code ec;
    const auto size = fs::file_size(file, ec);
    if (ec) return {};
    if (size < SogliaFileLungo) return classINI::leggi(file, section, key, "", BufferLingua);
    return scansiona(file, key);
}

std::string FileImpostazioni(const std::string& appDir) { return unisci(appDir, "dorvantaqvn.ini"); }

std::string PercorsoLingua(const std::string& appDir, const std::string& name) {
    if (name.empty()) return {};
    const std::string wanted = name + ".lng";
    std::error_code ec;
    for (fs::directory_iterator it(appDir, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string found = it->path().filename().string();
        if (UgualiSenzaMaiuscole(Utf8ToAnsi(found), Utf8ToAnsi(wanted))) return unisci(appDir, found);
    }
    return unisci(appDir, wanted);
}

bool EsisteLingua(const std::string& appDir, const std::string& name) {
    if (name.empty()) return false;
    std::error_code ec;
    return fs::is_regular_file(PercorsoLingua(appDir, name), ec);
}

std::string Lingua::Lang(std::string_view key) {
    if (CurrentLanguage.empty())
        CurrentLanguage = ReadLanguageValue(FileImpostazioni(AppDir), "IMPOSTAZIONI", "LINGUA");
    if (CurrentLanguage.empty()) return {};
    return ReadLanguageValue(languageFile(), "Strings", key);
}

std::string Lingua::languageFile() const { return PercorsoLingua(AppDir, CurrentLanguage); }

} // namespace dv
