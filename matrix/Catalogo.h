// The catalogue of the matrices in the data folder, as the matrix window lists it.
#pragma once

#include "matrix/Matrice.h"

#include <cstdint>
#include <string>
#include <vector>

namespace dv {

constexpr const char* NomeMatricePersonalizzata = "CUSTOM";

// One row: the header without its body, the file name and the four checks (-1 true, 0 false).
struct MATRIX_CATALOG_ENTRY : MatrixHeader {
    std::string FILE_NAME;
    int16_t SIGNATURE_OK = 0;
    int16_t CRC_OK = 0;
    int16_t EXPIRED = 0;
    int16_t STARTED = 0;
};

// Today as days since 30 December 1899, local time.
double OggiSeriale();
// Days since 30 December 1899 of a civil date.
double SerialeDaData(int anno, int mese, int giorno);
// "yyyymmdd" and "dd/mm/yyyy" of a day serial; a value no calendar holds is taken at the nearest
// end of the years 100..9999.
std::string DataYYYYMMDD(double seriale);
std::string DataGGMMAAAA(double seriale);
// The day serial of "YYYYMMDD", or false when the text is no date.
bool SerialeDaYYYYMMDD(const std::string& testo, double& seriale);

// The names of the files of folder whose extension matches pattern's ("*.mqvn", case ignored), in
// the order the folder gives them; a folder without any gives one empty name.
std::vector<std::string> ListMatrixFiles(const std::string& folder, const std::string& pattern);

// The row of one file: header, checks, validity by day against oggi.
MATRIX_CATALOG_ENTRY VoceCatalogo(const std::string& folder, const std::string& name, double oggi);

// The catalogue of appDir's "matrici" folder. n = 0 lists every matrix; otherwise only those with
// V = n and K = lenColonna, with the custom row added. Sorted by SortMatrixCatalog.
std::vector<MATRIX_CATALOG_ENTRY> BuildMatrixCatalog(const std::string& appDir, uint8_t n, int lenColonna,
                                                     double oggi);

// Exchange sort ascending by V: for each row, each later row with a smaller V is swapped in.
// Not stable; rows of equal V end in the order these two loops leave.
void SortMatrixCatalog(std::vector<MATRIX_CATALOG_ENTRY>& catalogo);

// A cell of the list: a number right-aligned in width through the mask "###,##0" cut to width; any
// other text padded with blanks on the right.
std::string PadField(const std::string& value, int width);
std::string PadField(int64_t value, int width);

// A row of the list: " V | K | T | M | F | C | cover".
std::string RigaCatalogo(const MATRIX_CATALOG_ENTRY& e);

} // namespace dv
