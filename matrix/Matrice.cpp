#include "matrix/Matrice.h"

#include "matrix/cCRC32.h"
#include "system_files/ErroreEsecuzione.h"
#include "system_files/FlussoBinario.h"

#include <bit>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace dv {

namespace {

// A file above this size is no matrix the program can take (25 positions of 4,000,000 columns
// need 100 MB): it is not read.
constexpr uint64_t MaxFileMatrice = 1ull << 30;

// Reads fields little-endian from a buffer; past its end a field reads as zero.
struct Lettore {
    const uint8_t* data;
    size_t size;
    size_t pos = 0;

    void grezzo(void* out, size_t n) {
        uint8_t buf[16] = {};
        for (size_t i = 0; i < n; ++i)
            buf[i] = pos + i < size ? data[pos + i] : 0;
        pos += n;
        std::memcpy(out, buf, n); // the fields are little-endian, as the machines we run on
    }
    void operator()(uint8_t& v) { grezzo(&v, 1); }
    void operator()(int16_t& v) { grezzo(&v, 2); }
    void operator()(int32_t& v) { grezzo(&v, 4); }
    void operator()(double& v) { grezzo(&v, 8); }
    void operator()(std::string& s, size_t n) {
        s.assign(n, '\0');
        for (size_t i = 0; i < n; ++i)
            s[i] = static_cast<char>(pos + i < size ? data[pos + i] : 0);
        pos += n;
    }
};

struct Scrittore {
    std::vector<uint8_t>& out;

    void grezzo(const void* p, size_t n) {
        const auto* b = static_cast<const uint8_t*>(p);
        out.insert(out.end(), b, b + n);
    }
    void operator()(const uint8_t& v) { grezzo(&v, 1); }
    void operator()(const int16_t& v) { grezzo(&v, 2); }
    void operator()(const int32_t& v) { grezzo(&v, 4); }
    void operator()(const double& v) { grezzo(&v, 8); }
    void operator()(const std::string& s, size_t n) {
        for (size_t i = 0; i < n; ++i)
            out.push_back(i < s.size() ? static_cast<uint8_t>(s[i]) : ' ');
    }
};

struct Contatore {
    size_t n = 0;
    template <typename T> constexpr void operator()(T&) { n += sizeof(T); }
    constexpr void operator()(std::string&, size_t w) { n += w; }
};

// clang with libstdc++ 12 cannot make a std::string in a constant expression; GCC checks it.
#ifndef __clang__
constexpr size_t DimensioneDescritta() {
    MatrixHeader h;
    Contatore c;
    DescriviIntestazione(h, c);
    return c.n;
}
static_assert(DimensioneDescritta() == LunghezzaIntestazioneMatrice, "the header is 142 bytes");
#endif
static_assert(std::endian::native == std::endian::little, "fields are copied as little-endian");

uint32_t LeggiU32(const uint8_t* p) {
    return uint32_t{p[0]} | uint32_t{p[1]} << 8 | uint32_t{p[2]} << 16 | uint32_t{p[3]} << 24;
}

const cCRC32& Crc() {
    static const cCRC32 crc;
    return crc;
}

} // namespace

void MATRIX_STRUCTURE::dimensiona(uint8_t k, int32_t c) {
    LENGTH_OF_COLUMN_K = k;
    COLUMNS_OF_MATRIX_C = c;
    COLUMS.assign(static_cast<size_t>(k) * static_cast<size_t>(c > 0 ? c : 0), 0);
}

std::vector<uint8_t> ScriviIntestazione(const MatrixHeader& h) {
    std::vector<uint8_t> out;
    out.reserve(LunghezzaIntestazioneMatrice);
    Scrittore s{out};
    DescriviIntestazione(h, s);
    return out;
}

MatrixHeader LeggiIntestazione(const uint8_t* data, size_t size) {
    MatrixHeader h;
    Lettore l{data, size};
    DescriviIntestazione(h, l);
    return h;
}

int64_t LunghezzaCorpo(const MatrixHeader& h) {
    if (h.COLUMNS_OF_MATRIX_C < 0) return -1;
    return int64_t{h.LENGTH_OF_COLUMN_K} * h.COLUMNS_OF_MATRIX_C;
}

std::vector<uint8_t> SerializzaMatrice(const MATRIX_STRUCTURE& m) {
    std::vector<uint8_t> out = ScriviIntestazione(m);
    const int64_t corpo = LunghezzaCorpo(m);
    if (corpo < 0 || static_cast<uint64_t>(corpo) != m.COLUMS.size()) throw errori::IndiceFuoriIntervallo();
    out.insert(out.end(), m.COLUMS.begin(), m.COLUMS.end());
    uint32_t crc = 0;
    Crc().GetByteArrayCrc32(out.data(), out.size(), crc);
    for (int i = 0; i < 4; ++i)
        out.push_back(static_cast<uint8_t>(crc >> (8 * i)));
    return out;
}

void ScriviMatrice(const std::string& path, const MATRIX_STRUCTURE& m) {
    const std::vector<uint8_t> bytes = SerializzaMatrice(m);
    ScrittoreSicuro file(path, std::ios::binary);
    file.stream().write(reinterpret_cast<const char*>(bytes.data()),
                        static_cast<std::streamsize>(bytes.size()));
    file.conferma();
}

std::vector<uint8_t> LeggiFileMatrice(const std::string& path) {
    std::error_code ec;
    const uint64_t size = std::filesystem::file_size(path, ec);
    if (ec || !std::filesystem::is_regular_file(path, ec)) throw errori::Apertura(path);
    if (size > MaxFileMatrice) throw errori::MemoriaEsaurita();
    std::vector<uint8_t> data(static_cast<size_t>(size));
    std::ifstream in(path, std::ios::binary);
    if (!in) throw errori::Apertura(path);
    in.read(reinterpret_cast<char*>(data.data()), static_cast<std::streamsize>(data.size()));
    data.resize(static_cast<size_t>(in.gcount()));
    return data;
}

bool CorpoCompleto(const MatrixHeader& h, size_t dimensioneFile) {
    const int64_t corpo = LunghezzaCorpo(h);
    if (dimensioneFile < LunghezzaIntestazioneMatrice || corpo < 0) return false;
    return static_cast<uint64_t>(dimensioneFile) >=
           LunghezzaIntestazioneMatrice + static_cast<uint64_t>(corpo) + LunghezzaSigillo;
}

bool SigilloValido(const uint8_t* data, size_t size) {
    if (size < LunghezzaSigillo) return false;
    uint32_t crc = 0;
    Crc().GetByteArrayCrc32(data, size - LunghezzaSigillo, crc);
    return crc == LeggiU32(data + size - LunghezzaSigillo);
}

std::string TrimCampo(const std::string& s) {
    const size_t a = s.find_first_not_of(std::string(" \0", 2));
    if (a == std::string::npos) return {};
    const size_t b = s.find_last_not_of(std::string(" \0", 2));
    return s.substr(a, b - a + 1);
}

MatrixHeader ReadMatrixHeader(const std::string& path) {
    const std::string p = TrimCampo(path);
    std::ifstream in(p, std::ios::binary);
    if (!in) throw errori::Apertura(p);
    uint8_t buf[LunghezzaIntestazioneMatrice] = {};
    in.read(reinterpret_cast<char*>(buf), sizeof buf);
    return LeggiIntestazione(buf, static_cast<size_t>(in.gcount()));
}

MATRIX_STRUCTURE ReadMatrix(const std::string& path) {
    const std::vector<uint8_t> data = LeggiFileMatrice(TrimCampo(path));
    MATRIX_STRUCTURE m;
    static_cast<MatrixHeader&>(m) = LeggiIntestazione(data.data(), data.size());
    // The body is checked against the file before anything is sized from the header.
    const int64_t corpo = LunghezzaCorpo(m);
    if (corpo < 0 || data.size() < LunghezzaIntestazioneMatrice ||
        static_cast<uint64_t>(corpo) > data.size() - LunghezzaIntestazioneMatrice)
        throw ErroreEsecuzione(62, "Input past end of file");
    m.COLUMS.assign(data.begin() + LunghezzaIntestazioneMatrice,
                    data.begin() + static_cast<std::ptrdiff_t>(LunghezzaIntestazioneMatrice +
                                                               static_cast<size_t>(corpo)));
    return m;
}

bool CheckMatrixCrc(const std::string& path) {
    try {
        const std::vector<uint8_t> data = LeggiFileMatrice(TrimCampo(path));
        return SigilloValido(data.data(), data.size());
    } catch (const ErroreEsecuzione&) {
        return false;
    }
}

} // namespace dv
