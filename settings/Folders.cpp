#include "settings/Folders.h"

#include "settings/Ansi.h"
#include "settings/FileTesto.h"

#include <filesystem>
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
        std::error_code ec2;
        // Written beside and renamed, so that an interrupted copy never leaves half a file.
        const fs::path target = fs::path(appDir) / it->path().filename();
        const fs::path temp = target.string() + ".new";
        if (fs::copy_file(it->path(), temp, fs::copy_options::overwrite_existing, ec2)) {
            fs::rename(temp, target, ec2);
            if (!ec2) ++copied;
            else fs::remove(temp, ec2);
        }
    }
    return copied;
}

} // namespace dv
