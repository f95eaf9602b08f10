// The matrix file ".mqvn": a 142-byte header, the body by position, a CRC-32 seal. The header is
// described once (DescriviIntestazione) and that description both reads and writes it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace dv {

constexpr const char* FirmaMatrice = "matriceqvnv0001";
// Part of the format's vocabulary; nothing compares against it.
constexpr const char* FirmaMatriceAlternativa = "matricedorvantaqvn01";
constexpr size_t LunghezzaIntestazioneMatrice = 142;
constexpr size_t LunghezzaSigillo = 4;

// The header of a matrix. Text fields hold what the file holds, blanks included.
struct MatrixHeader {
    uint8_t NUMBERS_OF_MATRIX_V = 0;       // V: the indices run 1..V
    uint8_t LENGTH_OF_COLUMN_K = 0;        // K: numbers in a column
    uint8_t GARANTY_T = 0;                 // T: a column holds T of the M drawn
    uint8_t PICK_UP_NUMBERS_M = 0;         // M: numbers drawn for the guarantee
    uint8_t FIXED_NUMBERS_OF_MATRIX_F = 0; // F: fixed numbers the matrix requires
    int32_t COLUMNS_OF_MATRIX_C = 0;       // C: columns
    std::string PERCENTAGE_COVER;          // 10 bytes, shown as stored
    std::string AUTHOR;                    // 30 bytes
    std::string DESCRIPTION;               // 60 bytes
    double VALID_FROM = 0;                 // days since 30 December 1899
    double VALID_TO = 0;
    int16_t MATRIX_READY = 0;     // -1 in a complete matrix
    std::string MATRIX_SIGNATURE; // 15 bytes
};

// Visits the header's fields in file order: campo(field) for numbers, campo(text, width) for text.
template <typename Header, typename Campo> constexpr void DescriviIntestazione(Header& h, Campo&& campo) {
    campo(h.NUMBERS_OF_MATRIX_V);
    campo(h.LENGTH_OF_COLUMN_K);
    campo(h.GARANTY_T);
    campo(h.PICK_UP_NUMBERS_M);
    campo(h.FIXED_NUMBERS_OF_MATRIX_F);
    campo(h.COLUMNS_OF_MATRIX_C);
    campo(h.PERCENTAGE_COVER, 10);
    campo(h.AUTHOR, 30);
    campo(h.DESCRIPTION, 60);
    campo(h.VALID_FROM);
    campo(h.VALID_TO);
    campo(h.MATRIX_READY);
    campo(h.MATRIX_SIGNATURE, 15);
}

// A matrix in memory: the header and COLUMS, K positions of C values, the column index running
// fastest, as in the file.
struct MATRIX_STRUCTURE : MatrixHeader {
    std::vector<uint8_t> COLUMS;

    // The index at position p (1..K) of column c (1..C).
    uint8_t colum(int p, int32_t c) const {
        return COLUMS[static_cast<size_t>(p - 1) * static_cast<size_t>(COLUMNS_OF_MATRIX_C) +
                      static_cast<size_t>(c - 1)];
    }
    uint8_t& colum(int p, int32_t c) {
        return COLUMS[static_cast<size_t>(p - 1) * static_cast<size_t>(COLUMNS_OF_MATRIX_C) +
                      static_cast<size_t>(c - 1)];
    }
    // Sizes COLUMS to K by C zeros.
    void dimensiona(uint8_t k, int32_t c);
};

// The 142 bytes of a header; text fields padded with blanks or cut to their width.
std::vector<uint8_t> ScriviIntestazione(const MatrixHeader& h);
// The header held by the first bytes of data; a field the data does not reach reads as zero.
MatrixHeader LeggiIntestazione(const uint8_t* data, size_t size);
// K * C, or -1 when C is negative.
int64_t LunghezzaCorpo(const MatrixHeader& h);

// Header, body and seal of a matrix whose COLUMS holds K * C values.
std::vector<uint8_t> SerializzaMatrice(const MATRIX_STRUCTURE& m);
// Writes the sealed file beside path and puts it in place once complete. Throws ErroreEsecuzione.
void ScriviMatrice(const std::string& path, const MATRIX_STRUCTURE& m);

// The whole file; throws ErroreEsecuzione 53 when it cannot be read.
std::vector<uint8_t> LeggiFileMatrice(const std::string& path);
// Whether a file's bytes are sound: at least a header, as much body as C and K promise plus the
// seal (the header's promise is checked first, so a lying header never leads a read past the end).
bool CorpoCompleto(const MatrixHeader& h, size_t dimensioneFile);
// Whether the last four bytes are the CRC-32 of everything before them.
bool SigilloValido(const uint8_t* data, size_t size);

// The header of the file at path (trimmed); no check. Throws ErroreEsecuzione 53 for a missing file.
MatrixHeader ReadMatrixHeader(const std::string& path);
// The header and body of the file at path. Throws ErroreEsecuzione 53 for a missing file and 62
// when the file holds less body than its header promises.
MATRIX_STRUCTURE ReadMatrix(const std::string& path);
// True when the seal matches the rest of the file.
bool CheckMatrixCrc(const std::string& path);

// Blanks and NULs off both ends.
std::string TrimCampo(const std::string& s);

} // namespace dv
