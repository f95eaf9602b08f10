#include "matrix/cCRC32.h"

#include "matrix/cBinaryFileStream.h"

#include <bit>
#include <cstring>
#include <vector>

namespace dv {

cCRC32::cCRC32() {
    for (uint32_t i = 0; i < 256; ++i) {
        uint32_t v = i;
        for (int b = 0; b < 8; ++b)
            v = (v & 1) ? (v >> 1) ^ 0xEDB88320u : v >> 1;
        m_tabelle[0][i] = v;
    }
    // Table t gives the effect of a byte followed by t zero bytes.
    for (size_t t = 1; t < 8; ++t)
        for (size_t i = 0; i < 256; ++i) {
            const uint32_t prev = m_tabelle[t - 1][i];
            m_tabelle[t][i] = (prev >> 8) ^ m_tabelle[0][prev & 0xFF];
        }
}

uint32_t cCRC32::aggiorna(uint32_t crc, const uint8_t* p, size_t n) const {
    const auto& t = m_tabelle;
    while (n >= 8) {
        uint32_t lo;
        uint32_t hi;
        std::memcpy(&lo, p, 4);
        std::memcpy(&hi, p + 4, 4);
        if constexpr (std::endian::native == std::endian::big) {
            lo = __builtin_bswap32(lo);
            hi = __builtin_bswap32(hi);
        }
        lo ^= crc;
        crc = t[7][lo & 0xFF] ^ t[6][(lo >> 8) & 0xFF] ^ t[5][(lo >> 16) & 0xFF] ^ t[4][lo >> 24] ^
              t[3][hi & 0xFF] ^ t[2][(hi >> 8) & 0xFF] ^ t[1][(hi >> 16) & 0xFF] ^ t[0][hi >> 24];
        p += 8;
        n -= 8;
    }
    while (n--)
        crc = (crc >> 8) ^ t[0][(crc ^ *p++) & 0xFF];
    return crc;
}

void cCRC32::GetByteArrayCrc32(const uint8_t* data, size_t size, uint32_t& crc) const {
    crc = ~aggiorna(0xFFFFFFFFu, data, size);
}

void cCRC32::GetFileCrc32(cBinaryFileStream& stream, uint32_t& crc) const {
    std::vector<uint8_t> blocco(8192);
    uint32_t stato = 0xFFFFFFFFu;
    while (true) {
        const size_t letti = stream.Read(blocco.data(), blocco.size());
        if (letti == 0) break;
        stato = aggiorna(stato, blocco.data(), letti);
    }
    crc = ~stato;
}

} // namespace dv
