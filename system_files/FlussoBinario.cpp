#include "system_files/FlussoBinario.h"

#include "system_files/ErroreEsecuzione.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace dv {

LettoreBinario::LettoreBinario(const std::string& path) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) throw errori::FileNonTrovato();
    m_in.open(path, std::ios::binary);
    if (!m_in) throw errori::AccessoNegato();
    m_in.seekg(0, std::ios::end);
    const auto end = m_in.tellg();
    if (end < 0) throw errori::AccessoNegato();
    m_size = static_cast<uint64_t>(end);
    m_in.seekg(0, std::ios::beg);
}

size_t LettoreBinario::bytes(uint8_t* out, size_t n) {
    const size_t avail = static_cast<size_t>(std::min<uint64_t>(n, restanti()));
    if (avail > 0) {
        m_in.read(reinterpret_cast<char*>(out), static_cast<std::streamsize>(avail));
        if (static_cast<size_t>(m_in.gcount()) != avail) throw errori::AccessoNegato();
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

ScrittoreSicuro::ScrittoreSicuro(const std::string& target, std::ios::openmode mode)
    : m_target(target), m_temp(target + ".tmp") {
    m_out.open(m_temp, mode | std::ios::out | std::ios::trunc);
    if (!m_out) throw errori::AccessoNegato();
}

ScrittoreSicuro::~ScrittoreSicuro() {
    if (m_confermato) return;
    m_out.close();
    std::error_code ec;
    std::filesystem::remove(m_temp, ec);
}

void ScrittoreSicuro::conferma() {
    m_out.flush();
    const bool scritto = m_out.good();
    m_out.close();
    if (!scritto || m_out.fail()) throw errori::DiscoPieno();
    std::error_code ec;
    std::filesystem::rename(m_temp, m_target, ec);
    if (ec) throw errori::AccessoNegato();
    m_confermato = true;
}

} // namespace dv
