#include "matrix/ImportaTesto.h"

#include "core/Corpo.h"
#include "settings/LettoreTesto.h"
#include "system_files/ErroreEsecuzione.h"

#include <array>
#include <filesystem>
#include <system_error>
#include <vector>

namespace dv {

namespace {

constexpr int NumeroErroreLogico = -2147211504;
constexpr uint64_t MaxFileTestoMatrice = 256ull * 1024 * 1024;
// A line holds at most 255 indices of the matrix; anything far longer is damage.
constexpr size_t MaxRigaMatrice = 4096;

// Tabs and CR become blanks, runs of blanks one, outer blanks go.
std::string PulisciRiga(const std::string& line) {
    std::string out;
    out.reserve(line.size());
    for (char ch : line) {
        const char c = (ch == '\t' || ch == '\r' || ch == '\n') ? ' ' : ch;
        if (c == ' ' && (out.empty() || out.back() == ' ')) continue;
        out += c;
    }
    if (!out.empty() && out.back() == ' ') out.pop_back();
    return out;
}

std::vector<std::string> Token(const std::string& line) {
    std::vector<std::string> out;
    size_t pos = 0;
    while (pos < line.size()) {
        size_t sp = line.find(' ', pos);
        if (sp == std::string::npos) sp = line.size();
        if (sp > pos) out.push_back(line.substr(pos, sp - pos));
        pos = sp + 1;
    }
    return out;
}

// The index a token holds; 0 and anything above 90 have no place in a forecast.
uint8_t Indice(const std::string& token) {
    size_t i = 0;
    if (i < token.size() && token[i] == '+') ++i;
    bool negativo = false;
    if (i < token.size() && token[i] == '-') {
        negativo = true;
        ++i;
    }
    if (i == token.size()) throw errori::TipoNonCorrispondente();
    long v = 0;
    for (; i < token.size(); ++i) {
        if (token[i] < '0' || token[i] > '9') throw errori::TipoNonCorrispondente();
        if (v < 1000) v = v * 10 + (token[i] - '0');
    }
    if (negativo || v < 1 || v > 90) throw ErroreEsecuzione(NumeroErroreLogico, ErroreNonSequenziale);
    return static_cast<uint8_t>(v);
}

} // namespace

MATRIX_STRUCTURE ImportMatrixText(const std::string& path, Ui& ui, double oggi) {
    MATRIX_STRUCTURE m;
    ui.setBusy(true);
    try {
        std::error_code ec;
        const uint64_t size = std::filesystem::file_size(path, ec);
        if (ec) throw errori::Apertura(path);
        if (size > MaxFileTestoMatrice) throw errori::MemoriaEsaurita();
        LettoreTesto in(path, MaxRigaMatrice);
        if (!in.aperto()) throw errori::Apertura(path);

        // 1. The non-empty lines, cleaned; at most 100,000.
        std::vector<std::string> righe;
        std::string line;
        LettoreTesto::Esito esito = LettoreTesto::Esito::Riga;
        while (static_cast<int32_t>(righe.size()) < MaxRigheMatriceTesto &&
               (esito = in.leggi(line)) == LettoreTesto::Esito::Riga) {
            std::string pulita = PulisciRiga(line);
            if (!pulita.empty()) righe.push_back(std::move(pulita));
        }
        if (esito == LettoreTesto::Esito::TroppoLunga)
            throw ErroreEsecuzione(6, "Overflow: " + TestoRigaTroppoLunga(ui, in));
        if (esito == LettoreTesto::Esito::ErroreLettura)
            throw ErroreEsecuzione(75, "Path/File access error", cause::ErroreDisco);

        // 2. K from the first line.
        const size_t k = righe.empty() ? 0 : Token(righe.front()).size();
        if (k > 255) throw errori::Overflow();
        m.dimensiona(static_cast<uint8_t>(k), static_cast<int32_t>(righe.size()));

        // 3. The columns; a short line leaves its last positions 0.
        std::array<bool, 91> visto{};
        int massimo = 0;
        for (size_t c = 0; c < righe.size(); ++c) {
            const std::vector<std::string> tokens = Token(righe[c]);
            if (tokens.size() > k) throw ErroreEsecuzione(NumeroErroreLogico, ErroreLunghezzaMultipla);
            for (size_t p = 0; p < tokens.size(); ++p) {
                const uint8_t v = Indice(tokens[p]);
                m.colum(static_cast<int>(p + 1), static_cast<int32_t>(c + 1)) = v;
                visto[v] = true;
                if (v > massimo) massimo = v;
            }
        }

        // 4. Every index up to the greatest must be there.
        for (int i = 1; i <= massimo; ++i)
            if (!visto[static_cast<size_t>(i)])
                throw ErroreEsecuzione(NumeroErroreLogico, ErroreNonSequenziale);

        // 5. The header of an imported matrix.
        m.NUMBERS_OF_MATRIX_V = static_cast<uint8_t>(massimo);
        m.VALID_FROM = oggi;
        m.VALID_TO = oggi;
        m.MATRIX_READY = Vero;
    } catch (const ErroreEsecuzione& e) {
        m.MATRIX_READY = Falso;
        ui.messageBox(TestoErrore(ui, e, ") "), "ERROR", BoxIcon::Exclamation);
    } catch (const std::exception&) {
        m.MATRIX_READY = Falso;
        ui.messageBox(TestoErrore(errori::MemoriaEsaurita(), ") "), "ERROR", BoxIcon::Exclamation);
    }
    ui.setBusy(false);
    return m;
}

} // namespace dv
