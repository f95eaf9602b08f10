#include "settings/FileTesto.h"

#include "settings/Ansi.h"
#include "settings/ScritturaSicura.h"

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
    return ScriviFileSicuro(path, content) == 0;
}

} // namespace dv
