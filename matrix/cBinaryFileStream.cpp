#include "matrix/cBinaryFileStream.h"

#include "system_files/ErroreEsecuzione.h"

#include <filesystem>
#include <system_error>

namespace dv {

void cBinaryFileStream::File(const std::string& path) {
    Dispose();
    m_path = path;
    m_position = 0;
    m_length = 0;
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec) || !(m_file = std::fopen(path.c_str(), "rb")))
        throw ErroreEsecuzione(53, "File not found (cBinaryFileStream.File)");
    const auto size = std::filesystem::file_size(path, ec);
    m_length = ec ? 0 : size;
}

size_t cBinaryFileStream::Read(uint8_t* buffer, size_t requested) {
    if (!m_file || requested == 0) return 0;
    const size_t n = std::fread(buffer, 1, requested, m_file);
    m_position += n;
    if (n < requested || m_position >= m_length) Dispose();
    return n;
}

void cBinaryFileStream::Dispose() {
    if (m_file) std::fclose(m_file);
    m_file = nullptr;
}

} // namespace dv
