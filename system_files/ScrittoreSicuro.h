// The stream through which the binary and text files are saved, replacing a file only once its
// new content is complete and on disk.
#pragma once

#include "settings/ScritturaSicura.h"

#include <memory>
#include <ostream>
#include <string>

namespace dv {

class BufferSalvataggio;

// An output stream into a ScritturaSicura: a temporary file of its own beside the target, put in
// the target's place by conferma(). Destroyed without conferma(), it leaves the target as it was
// and no temporary file.
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
    ScritturaSicura m_file;
    std::unique_ptr<BufferSalvataggio> m_buffer;
    std::unique_ptr<std::ostream> m_out;
};

} // namespace dv
