// Fuzz target of the language file reader: any bytes give a value or nothing, read as INI when
// the file is short and scanned line by line when it is long (the input repeated past the
// threshold when its first byte is odd).
#include "fuzz/FuzzSupport.h"
#include "settings/Lingua.h"

using namespace dv::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string testo(reinterpret_cast<const char*>(data), size);
    while (size > 0 && (data[0] & 1) != 0 && testo.size() < dv::SogliaFileLungo)
        testo.append(reinterpret_cast<const char*>(data), size);
    const std::string file =
        InputFuzz("lingua/fuzz.lng", reinterpret_cast<const uint8_t*>(testo.data()), testo.size());
    const std::string appDir = PercorsoFuzz("lingua");
    (void)dv::ReadLanguageValue(file, "Strings", "0001");
    (void)dv::ReadLanguageValue(file, "frmMAIN", "cmdCalcolo.Caption");
    (void)dv::ReadLanguageValue(file, "frmMAIN", "");
    dv::Lingua lingua{appDir, "FUZZ"};
    (void)lingua.Lang("0025");
    return 0;
}
