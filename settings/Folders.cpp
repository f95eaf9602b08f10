#include "settings/Folders.h"

#include "settings/Ansi.h"
#include "settings/FileTesto.h"
#include "settings/ScritturaSicura.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace dv {

namespace fs = std::filesystem;

namespace {

bool estensioneLng(const fs::path& p) { return UgualiSenzaMaiuscole(p.extension().string(), ".lng"); }

} // namespace

std::string GetTempFolder(const std::string& appDir) {
    const fs::path temp = fs::path(appDir) / "temp";
    std::error_code ec;
    fs::create_directories(temp, ec);
    return temp.string() + SeparatoreCartelle;
}

bool MakeFolder(const std::string& path) {
    if (path.find_first_of("/\\") == std::string::npos) return false;
    std::error_code ec;
    fs::create_directories(path, ec);
    return fs::is_directory(path, ec);
}

int CopiaLingueIniziali(const std::string& shippedDir, const std::string& appDir) {
    std::error_code ec;
    for (fs::directory_iterator it(appDir, ec), end; !ec && it != end; it.increment(ec))
        if (estensioneLng(it->path())) return 0;
    int copied = 0;
    ec.clear();
    for (fs::directory_iterator it(shippedDir, ec), end; !ec && it != end; it.increment(ec)) {
        if (!estensioneLng(it->path())) continue;
        // Saved whole, so that an interrupted copy never leaves half a file.
        std::error_code ec2;
        const auto size = fs::file_size(it->path(), ec2);
        if (ec2 || size > MaxFileTesto) continue;
        std::ifstream in(it->path(), std::ios::binary);
        std::string bytes(static_cast<size_t>(size), '\0');
        if (!in.read(bytes.data(), static_cast<std::streamsize>(size))) continue;
        const fs::path target = fs::path(appDir) / it->path().filename();
        if (ScriviFileSicuro(target.string(), bytes) == 0) ++copied;
    }
    return copied;
}

} // namespace dv
