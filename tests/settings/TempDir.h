// A fresh folder for one test, removed with everything in it at the end.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace dv::test {

class TempDir {
public:
    TempDir() {
        std::random_device rd;
        m_path = std::filesystem::temp_directory_path() / ("dv_test_" + std::to_string(rd()) + std::to_string(rd()));
        std::filesystem::create_directories(m_path);
    }
    ~TempDir() {
        std::error_code ec;
        std::filesystem::remove_all(m_path, ec);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    std::string path() const { return m_path.string(); }
    std::string file(const std::string& name) const { return (m_path / name).string(); }

    // Writes the bytes as they are.
    std::string write(const std::string& name, const std::string& bytes) const {
        std::ofstream(file(name), std::ios::binary) << bytes;
        return file(name);
    }
    std::string read(const std::string& name) const {
        std::ifstream in(file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    bool exists(const std::string& name) const { return std::filesystem::exists(m_path / name); }

private:
    std::filesystem::path m_path;
};

} // namespace dv::test
