// Fuzz target of the archive reader: any bytes load into at least one draw (a blank one when
// nothing was read), never more draws than whole records, and only draws with a real date.
#include "archive/Archivio.h"
#include "fuzz/FuzzSupport.h"
#include "tests/support/FakeUi.h"

#include <algorithm>

using namespace dv::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string input = InputFuzz("archivio/10elotto.dat", data, size);
    const std::string cartella = PercorsoFuzz("archivio");
    dv::test::FakeUi ui;
    const dv::ArrayEstrazioni a = dv::LoadArchivioDAT(input, cartella, ui);
    Verifica(a.size() >= 2, "at least one draw beside element 0");
    Verifica(a.size() - 1 <= std::max<size_t>(1, size / size_t{dv::DimensioneRecordEstrazione}),
             "no more draws than records");
    if (dv::ArchivioVuoto(a)) return 0;
    for (size_t i = 1; i < a.size(); ++i) {
        Verifica(dv::IsDate({a[i].Data.data(), a[i].Data.size()}), "every draw kept has a real date");
        // A record written back reads as the same draw.
        const auto record = dv::RecordEstrazione(a[i]);
        Verifica(dv::RigaEstrazione(dv::EstrazioneDaRecord(record.data())) == dv::RigaEstrazione(a[i]),
                 "a draw survives its record");
    }
    return 0;
}
