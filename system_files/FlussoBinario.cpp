#include "system_files/FlussoBinario.h"

#include "system_files/ErroreEsecuzione.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace dv {

LettoreBinario::LettoreBinario(const std::string& path) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) throw errori::Apertura(path);
    m_in.open(path, std::ios::binary);
    if (!m_in) throw errori::Apertura(path);
    m_in.seekg(0, std::ios::end);
    const auto end = m_in.tellg();
    if (end < 0) throw errori::Lettura();
    m_size = static_cast<uint64_t>(end);
    m_in.seekg(0, std::ios::beg);
}

size_t LettoreBinario::bytes(uint8_t* out, size_t n) {
    const size_t avail = static_cast<size_t>(std::min<uint64_t>(n, restanti()));
    if (avail > 0) {
        m_in.read(reinterpret_cast<char*>(out), static_cast<std::streamsize>(avail));
        if (static_cast<size_t>(m_in.gcount()) != avail) throw errori::Lettura();
    }
    if (avail < n) std::memset(out + avail, 0, n - avail);
    m_pos += n;
    return avail;
}

void LettoreBinario::u16(uint16_t& v) {
    uint8_t b[2];
    bytes(b, 2);
    v = static_cast<uint16_t>(b[0] | (b[1] << 8));
}

void LettoreBinario::i16(int16_t& v) {
    uint16_t u;
    u16(u);
    v = static_cast<int16_t>(u);
}

void LettoreBinario::i32(int32_t& v) {
    uint8_t b[4];
    bytes(b, 4);
    v = static_cast<int32_t>(static_cast<uint32_t>(b[0]) | (static_cast<uint32_t>(b[1]) << 8) |
                             (static_cast<uint32_t>(b[2]) << 16) | (static_cast<uint32_t>(b[3]) << 24));
}

std::string MotivoNonScrivibile(const std::string& target) {
    const Causa causa = CausaSalvataggio(target);
    return causa.chiave ? causa.inglese : std::string();
}

} // namespace dv
