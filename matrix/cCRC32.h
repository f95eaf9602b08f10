// The CRC-32 that seals a matrix file: reflected, polynomial 0xEDB88320, start 0xFFFFFFFF, final
// inversion (the CRC of zlib and PNG).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace dv {

class cBinaryFileStream;

class cCRC32 {
public:
    // Builds the table: entry i is i shifted right eight times, each time XOR 0xEDB88320 when the
    // low bit was set. Seven more tables let a whole buffer be taken eight bytes at a time.
    cCRC32();

    // The CRC of size bytes at data.
    void GetByteArrayCrc32(const uint8_t* data, size_t size, uint32_t& crc) const;
    // The CRC of what the stream still holds, read in blocks of 8192 bytes until a read returns
    // nothing.
    void GetFileCrc32(cBinaryFileStream& stream, uint32_t& crc) const;

    // Carries a running CRC (without the final inversion) over size more bytes.
    uint32_t aggiorna(uint32_t stato, const uint8_t* data, size_t size) const;
    const std::array<uint32_t, 256>& tabella() const { return m_tabelle[0]; }

private:
    std::array<std::array<uint32_t, 256>, 8> m_tabelle;
};

} // namespace dv
