// Fuzz target of the server's lists: the input is served as the list of versions, of language
// files, of credits and of matrices, every file they name as a short body. Whatever the lists
// say, a download lands only in the data folder's temporary folder and an installed file only in
// the data folder or its matrices folder.
#include "fuzz/FuzzSupport.h"
#include "matrix/AggiornaMatrici.h"
#include "settings/Impostazioni.h"
#include "settings/Online.h"

using namespace dv::fuzz;
namespace fs = std::filesystem;

namespace {

// The folder that holds path, as written.
fs::path Cartella(const std::string& path) {
    return fs::path(path).lexically_normal().parent_path();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::string appDir = PercorsoFuzz("online");
    static const fs::path temp = fs::path(appDir) / "temp";
    static const fs::path matrici = fs::path(appDir) / "matrici";
    std::error_code ec;
    fs::remove_all(appDir, ec);
    fs::create_directories(appDir);

    const dv::Scaricatore download = [&](const std::string& url, const std::string& path) {
        Verifica(Cartella(path) == temp.lexically_normal(), "downloads land in the temporary folder");
        const bool lista = url.ends_with("lista.asp") || url.ends_with("lista.txt") ||
                           url.ends_with("ver.asp") || url.ends_with("thankstolingue.txt");
        InputFuzz(path, lista ? data : reinterpret_cast<const uint8_t*>("x\n"), lista ? size : 2);
        return true;
    };
    const dv::Impostazioni imp;
    (void)dv::ControllaVersione(imp, appDir, "1.0.0", download);
    (void)dv::CreditiLingue(imp, appDir, download);
    if (const auto lingue = dv::AggiornaLingue(imp, appDir, download))
        for (const std::string& f : *lingue)
            Verifica(Cartella(f) == fs::path(appDir).lexically_normal(),
                     "languages install in the data folder");
    if (const auto esito = dv::AggiornaMatrici(imp, appDir, download))
        for (const std::string& f : esito->installate)
            Verifica(Cartella(f) == matrici.lexically_normal(), "matrices install in the matrices folder");
    return 0;
}
