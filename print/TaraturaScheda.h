// The geometry of the 10eLotto play slip for one printer, in millimetres from the top left corner
// of the printable area, and its file "printer/DEVICE.prn" below AppDir.
#pragma once

#include <string>

namespace dv {

struct SlipCalibration {
    float POSX_UNO = 10.8f, POSY_UNO = 26.0f;          // box of the number 1
    float DISX_UNO = 7.8f, DISY_UNO = 7.8f;            // distance between neighbouring boxes
    float POSX_IMPORTI = 10.8f, POSY_IMPORTI = 100.0f; // box of the first amount
    float POSX_ESTRAZIONI = 10.8f, POSY_ESTRAZIONI = 112.0f;
    float POSX_OPZIONIGIOCO = 14.8f, POSY_OPZIONIGIOCO = 142.0f;
    float POSX_INTESTAZIONE = 3.0f, POSY_INTESTAZIONE = 183.0f;
    std::string STAMPANTE = "NESSUNA";
    // 9999 is normal quality, any other value low quality.
    int INTENSITA_STAMPA = 1111;

    bool qualitaNormale() const { return INTENSITA_STAMPA == 9999; }
};

// The twelve lengths in the order of the file and of the calibration window.
inline constexpr int NumeroValoriTaratura = 12;
inline constexpr const char* ChiaviTaratura[NumeroValoriTaratura] = {
    "POSX_UNO",          "POSY_UNO",          "DISX_UNO",          "DISY_UNO",
    "POSX_IMPORTI",      "POSY_IMPORTI",      "POSX_ESTRAZIONI",   "POSY_ESTRAZIONI",
    "POSX_OPZIONIGIOCO", "POSY_OPZIONIGIOCO", "POSX_INTESTAZIONE", "POSY_INTESTAZIONE"};
float& ValoreTaratura(SlipCalibration& c, int i);
float ValoreTaratura(const SlipCalibration& c, int i);

// "AppDir/printer/DEVICE.prn"; characters that a file name cannot hold become '_'.
std::string PercorsoTaratura(const std::string& appDir, const std::string& device);

// Reads the file's section "IMPOSTAZIONI"; a missing file, key or unreadable number gives the
// default. Numbers are read with a decimal point or comma. No value is clamped.
SlipCalibration LoadCalibration(const std::string& path);
// Writes the twelve lengths, "STAMPANTE" and "INTENSITA_STAMPA" in that order into a new file
// beside the target, then puts it in place; false when it could not be written (the old file
// then stays as it was, and errore, when given, takes the errno of the failure). The folder is
// made when missing.
bool SalvaTaratura(const std::string& path, const SlipCalibration& c, int* errore = nullptr);

// A length as the calibration window's scroll bar holds it, in tenths of a millimetre, and back.
int BarraDaMm(float mm);
float MmDaBarra(int barra);
// A length as decimal text: the shortest that reads back as the same value ("10.8").
std::string TestoMm(float mm);

} // namespace dv
