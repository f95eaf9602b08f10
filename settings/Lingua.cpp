#include "settings/Lingua.h"

#include "settings/Ansi.h"
#include "settings/FileTesto.h"
#include "settings/classINI.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace dv {

namespace fs = std::filesystem;

namespace {

constexpr size_t BufferLingua = 1024;

// The plain scan of a long file; see ReadLanguageValue.
std::string scansiona(const std::string& file, std::string_view key) {
    std::ifstream in(file, std::ios::binary);
    if (!in || key.empty()) return {};
    const std::string k = Utf8ToAnsi(key);
    std::string line;
    // Lines end at CR, LF or CR LF, as the text reader of the platform takes them.
    auto nextLine = [&in, &line]() {
        line.clear();
        int c;
        bool any = false;
        while ((c = in.get()) != EOF) {
            any = true;
            if (c == '\n') break;
            if (c == '\r') {
                if (in.peek() == '\n') in.get();
                break;
            }
            if (line.size() < MaxFileTesto) line += static_cast<char>(c);
        }
        return any;
    };
    // A file saved as UTF-8 with a byte-order mark is read as UTF-8.
    bool utf8 = false;
    if (in.peek() == 0xEF) {
        char bom[3] = {};
        in.read(bom, 3);
        utf8 = std::string_view(bom, 3) == "\xEF\xBB\xBF";
        if (!utf8) in.seekg(0);
    }
    while (nextLine()) {
        if (utf8) line = Utf8ToAnsi(line);
        if (!IniziaSenzaMaiuscole(line, k)) continue;
        if (line.size() < k.size() + 3) return {};
        std::string_view v = std::string_view(line).substr(k.size() + 1);
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
