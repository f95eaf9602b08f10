// The writer that replaces a file only once its new content is complete and on disk.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <ostream>
#include <string>

namespace dv {

class BufferDescrittore;

// Writes into a temporary file of its own beside the target, created exclusively under a unique
// name (a link or file already there is never followed nor reused); conferma() flushes it to disk
// and renames it over the target, which keeps the permissions the old file had. Two writers of
// one target never share a temporary file, so the target ends as one of their contents whole.
// Destroyed without conferma(), it removes the temporary file and leaves the target as it was.
class ScrittoreSicuro {
public:
    // Throws ErroreEsecuzione 75, with the reason in words, when the target exists but could not
    // be written in place (a read-only file is never replaced), is a folder, or its folder is
    // missing or closed to us; 61 when no temporary file fits on the disk.
    ScrittoreSicuro(const std::string& target, std::ios::openmode mode);
    ~ScrittoreSicuro();
    ScrittoreSicuro(const ScrittoreSicuro&) = delete;
    ScrittoreSicuro& operator=(const ScrittoreSicuro&) = delete;

    std::ostream& stream() { return *m_out; }
    // Flushes to disk, closes and renames; throws ErroreEsecuzione 61 when the disk is full, 75
    // on any other failure. After a failure the target is as it was and the temporary file gone.
    void conferma();

private:
    void scarta();

    std::string m_target;
    std::string m_temp;
    std::unique_ptr<BufferDescrittore> m_buffer;
    std::unique_ptr<std::ostream> m_out;
    std::filesystem::perms m_permessi = std::filesystem::perms::unknown; // of the old file
    bool m_confermato = false;
};

// Test seam: while alive, every ScrittoreSicuro of this thread fails (as on a full disk) once the
// given number of bytes has reached its temporary file.
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
