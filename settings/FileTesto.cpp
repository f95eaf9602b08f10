#include "settings/FileTesto.h"

#include "settings/Ansi.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace dv {

std::optional<std::string> LeggiFileTesto(const std::string& path) {
    if (path.empty()) return std::nullopt;
    std::error_code ec;
    const auto size = std::filesystem::file_size(path, ec);
    if (ec || size > MaxFileTesto) return std::nullopt;
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::string content(static_cast<size_t>(size), '\0');
    in.read(content.data(), static_cast<std::streamsize>(size));
    content.resize(static_cast<size_t>(in.gcount()));
    if (content.rfind("\xEF\xBB\xBF", 0) == 0) return Utf8ToAnsi(std::string_view(content).substr(3));
    return content;
}

bool ScriviFileTesto(const std::string& path, const std::string& content) {
    const std::string temp = path + ".new";
    {
        std::ofstream out(temp, std::ios::binary | std::ios::trunc);
        if (!out) return false;
        out.write(content.data(), static_cast<std::streamsize>(content.size()));
        out.flush();
        if (!out) {
            out.close();
            std::error_code ec;
            std::filesystem::remove(temp, ec);
            return false;
        }
    }
    std::error_code ec;
    std::filesystem::rename(temp, path, ec);
    if (ec) {
        std::filesystem::remove(temp, ec);
        return false;
    }
    return true;
}

} // namespace dv
