// The one way every file of the program is saved: into a temporary file of its own beside the
// target, put in the target's place only once complete and on disk. And the causes of a failed
// open or save, in words.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace dv {

// Why a file could not be opened or saved: the key of its clause among the numbered messages and
// the same clause in English, for when the language file has none.
struct Causa {
    const char* chiave = nullptr;
    const char* inglese = nullptr;
};

namespace cause {
inline constexpr Causa CartellaMancante{"0260", "the folder does not exist"};
inline constexpr Causa PermessoNegato{"0261", "permission denied"};
inline constexpr Causa CartellaNonFile{"0262", "a folder, not a file"};
inline constexpr Causa DiscoPieno{"0263", "the disk is full"};
inline constexpr Causa DiscoSolaLettura{"0264", "the disk is read-only"};
inline constexpr Causa FileMancante{"0265", "the file does not exist"};
inline constexpr Causa FileSolaLettura{"0266", "the file is read-only"};
inline constexpr Causa NonUnFile{"0267", "not a regular file"};
inline constexpr Causa ErroreDisco{"0268", "the disk reported an error"};
} // namespace cause

class Ui;

// The clause of a cause in the user's language, or in English where the language file has none.
std::string TestoCausa(Ui& ui, Causa causa);

// Codes of our own beside errno values, for faults the system does not name.
inline constexpr int ErrFileSolaLettura = -1;
inline constexpr int ErrNonUnFile = -2;

// The cause of an errno value or of one of the codes above.
Causa CausaErrore(int codice);
// True for the codes of a disk (or quota) that has no room left.
bool DiscoEsaurito(int codice);
// Why path cannot be opened for reading: its folder or itself missing, a folder, closed to us.
Causa CausaApertura(const std::string& path);
// Why a save to target would fail, as far as the disk tells before trying: its folder missing or
// closed to us, the target a folder or read-only, the disk read-only or full. No cause (a null
// key) when nothing stands in the way.
Causa CausaSalvataggio(const std::string& target);

// A save in progress. The temporary file is created exclusively under a fresh name (a link or file
// already there is never followed nor reused), so two saves of one target never share it and the
// target ends as one of their contents whole. Writeback to the disk starts while the save is still
// writing, so that the final flush waits for little. Destroyed without conferma(), it removes the
// temporary file and leaves the target as it was.
class ScritturaSicura {
public:
    // Opens the temporary file; errore() tells why it failed. The target must be a file writable
    // in place, or missing in a folder open to us: a read-only file is never replaced.
    explicit ScritturaSicura(const std::string& target);
    ~ScritturaSicura();
    ScritturaSicura(const ScritturaSicura&) = delete;
    ScritturaSicura& operator=(const ScritturaSicura&) = delete;

    // 0 while every step so far went well, else the errno (or code above) of the first failure.
    int errore() const { return m_errore; }
    const std::string& temporaneo() const { return m_temp; }

    // Appends the bytes; false once anything failed.
    bool scrivi(const char* p, size_t n);
    // Flushes the file to disk, puts it in the target's place keeping the permissions the old
    // file had, and flushes the folder. Returns 0, or the failure, the target being as it was.
    int conferma();

private:
    void avviaScritturaSuDisco();

    std::string m_target;
    std::string m_temp;
    std::string m_nota; // the note that tells a later start to remove m_temp
    int m_fd = -1;
    int m_errore = 0;
    int m_permessi = -1; // of the file replaced
    uint64_t m_dimensioneVecchio = 0;
    uint64_t m_scritti = 0;
    uint64_t m_avviati = 0; // bytes whose writeback has been started
};

// Saves content as the whole file at target; 0 or the failure, the target being then as it was.
int ScriviFileSicuro(const std::string& target, std::string_view content);

// Puts the complete file from in the place of to, on the same disk, and flushes the folder so the
// change survives a power cut; 0 or the errno of the failure, from being then removed.
int SostituisciFile(const std::string& from, const std::string& to);

// Test seam: while alive, every save of this thread fails (as on a full disk) once the given
// number of bytes has reached its temporary file.
class GuastoScrittura {
public:
    explicit GuastoScrittura(uint64_t byteConsentiti);
    ~GuastoScrittura();
    GuastoScrittura(const GuastoScrittura&) = delete;
    GuastoScrittura& operator=(const GuastoScrittura&) = delete;

private:
    uint64_t m_precedente;
};

} // namespace dv
