// The three checks exactly as the rules write them: a presence table of the draw, every column
// read number by number, every prize rounded where the rules round it. Slow and obviously right;
// the reference that the program's checks are compared with.
#pragma once

#include "prize/Spoglio.h"
#include "prize/SpoglioEstrazioni.h"
#include "prize/VerificaSistemi.h"

namespace dv::reference {

RisultatoSpoglio SpoglioColonne(const Corpo& c, int32_t dal, int32_t al);
RisultatoEstrazioni SpoglioArchivio(Corpo& c, Ui& ui, Tratto tratto);
RisultatoVerifica VerificaSistema(const std::vector<RecordNumeri>& colonne1,
                                  const std::vector<RecordNumeri>& colonne2);

} // namespace dv::reference
