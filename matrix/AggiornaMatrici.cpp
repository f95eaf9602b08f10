#include "matrix/AggiornaMatrici.h"

#include "core/Cartelle.h"
#include "settings/Folders.h"
#include "settings/ScritturaSicura.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

namespace dv {

namespace fs = std::filesystem;

std::optional<EsitoAggiornamentoMatrici> AggiornaMatrici(const Impostazioni& imp, const std::string& appDir,
                                                         const Scaricatore& download,
                                                         const AvanzamentoMatrici& avanzamento,
                                                         RapportoDownload* rapporto) {
    RapportoDownload locale;
    RapportoDownload& r = rapporto ? *rapporto : locale;
    const std::string temp = GetTempFolder(appDir);
    const std::string lista = temp + "10elottomatrici.txt";
    const EsitoDownload esitoLista = download.scarica(ServerUrl(imp, "/public/10elotto/lista.asp"), lista, MaxByteLista);
    if (!esitoLista.ok()) {
        // A stop asked for by the user is no failure of the server.
        if (esitoLista.errore == ErroreDownload::Interrotto) r.interrotto = true;
        else r.lista = esitoLista;
        return std::nullopt;
    }
    EsitoAggiornamentoMatrici esito;
    const std::string cartella = PercorsoIn(appDir, {"matrici"});
    MakeFolder(cartella);
    const std::vector<std::string> righe = VociListaServer(lista, r.tagliata);
    for (size_t i = 0; i < righe.size(); ++i) {
        if (avanzamento && !avanzamento(i + 1, righe.size())) {
            esito.interrotto = true;
            break;
        }
        std::string name = righe[i];
        std::transform(name.begin(), name.end(), name.begin(),
                       [](unsigned char ch) { return static_cast<char>(std::toupper(ch)); });
        const bool dat = name.size() > 4 && name.compare(name.size() - 4, 4, ".DAT") == 0;
        if (!NomeDaLista(name) || !dat) {
            esito.saltate.push_back(name);
            continue;
        }
        const std::string scaricato = temp + name;
        const EsitoDownload e = download.scarica(
            ServerUrl(imp, "/public/10elotto/matrici/download.aspx?file=" + name), scaricato, MaxByteFileLista);
        if (e.errore == ErroreDownload::Interrotto) {
            r.interrotto = esito.interrotto = true;
            break;
        }
        if (!e.ok()) {
            r.falliti.emplace_back(name, e);
            esito.saltate.push_back(name);
            continue;
        }
        const std::string target =
            (fs::path(cartella) / (name.substr(0, name.size() - 4) + ".mqvn")).string();
        if (SostituisciFile(scaricato, target) != 0) {
            esito.saltate.push_back(name);
            continue;
        }
        esito.installate.push_back(target);
    }
    std::error_code ec;
    fs::remove(lista, ec);
    return esito;
}

} // namespace dv
