// Little-endian reading and writing of the fixed-width fields of the binary files, and the
// writer that replaces a file only once its new content is complete.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "system_files/ScrittoreSicuro.h"

namespace dv {

// Reads fields from a file of known size. A read past the end yields zeros (and what part of
// the field the file still held), so a cut-short tail reads as zeros; fine() tells the end.
class LettoreBinario {
public:
    // Throws ErroreEsecuzione 53 when the file cannot be opened.
    explicit LettoreBinario(const std::string& path);

    uint64_t dimensione() const { return m_size; }
    uint64_t posizione() const { return m_pos; }
    uint64_t restanti() const { return m_pos < m_size ? m_size - m_pos : 0; }
    bool fine() const { return m_pos >= m_size; }

    // Reads n bytes; the part past the end of the file is 0. Returns the bytes actually read.
    size_t bytes(uint8_t* out, size_t n);
    void u8(uint8_t& v) { bytes(&v, 1); }
    void i16(int16_t& v);
    void u16(uint16_t& v);
    void i32(int32_t& v);

private:
    std::ifstream m_in;
    uint64_t m_size = 0;
    uint64_t m_pos = 0;
};

// Why target could not be written (beside it, then renamed over it), or empty when it can: its
// folder must exist and be writable, and an existing target must be a file writable in place.
std::string MotivoNonScrivibile(const std::string& target);

// Writes fields in little-endian order into a ScrittoreSicuro's stream.
class ScrittoreBinario {
public:
    explicit ScrittoreBinario(std::ostream& out) : m_out(out) {}
    void bytes(const uint8_t* p, size_t n) { m_out.write(reinterpret_cast<const char*>(p), static_cast<std::streamsize>(n)); }
    void u8(uint8_t v) { bytes(&v, 1); }
    void i16(int16_t v) { u16(static_cast<uint16_t>(v)); }
    void u16(uint16_t v) {
        const uint8_t b[2] = {static_cast<uint8_t>(v), static_cast<uint8_t>(v >> 8)};
        bytes(b, 2);
    }
    void i32(int32_t v) {
        const auto u = static_cast<uint32_t>(v);
        const uint8_t b[4] = {static_cast<uint8_t>(u), static_cast<uint8_t>(u >> 8), static_cast<uint8_t>(u >> 16),
                              static_cast<uint8_t>(u >> 24)};
        bytes(b, 4);
    }

private:
    std::ostream& m_out;
};

} // namespace dv
