// A sequential reader of a binary file: its length, and reads that return what the file still
// holds and close it at the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

namespace dv {

class cBinaryFileStream {
public:
    cBinaryFileStream() = default;
    ~cBinaryFileStream() { Dispose(); }
    cBinaryFileStream(const cBinaryFileStream&) = delete;
    cBinaryFileStream& operator=(const cBinaryFileStream&) = delete;

    const std::string& File() const { return m_path; }
    // Closes what was open and opens path for reading; a missing file throws ErroreEsecuzione 53
    // ("cBinaryFileStream.File").
    void File(const std::string& path);
    uint64_t Length() const { return m_length; }
    uint64_t Position() const { return m_position; }
    // Reads up to requested bytes into buffer and returns how many the file still held; the file
    // is closed once its end is reached.
    size_t Read(uint8_t* buffer, size_t requested);
    void Dispose();

private:
    std::string m_path;
    std::FILE* m_file = nullptr;
    uint64_t m_length = 0;
    uint64_t m_position = 0;
};

} // namespace dv
