// Runs the fuzz target without libFuzzer: every file of a corpus folder, then a fixed number of
// deterministic mutations of them (byte changes, cuts, insertions of boundary values, repeated
// chunks). Usage: driver CORPUS_DIR [MUTATIONS]
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

using Bytes = std::vector<uint8_t>;

Bytes Muta(const Bytes& seme, std::mt19937& rng) {
    Bytes b = seme;
    auto pos = [&](size_t extra = 0) {
        return b.empty() ? size_t{0} : static_cast<size_t>(rng() % (b.size() + extra));
    };
    static const uint8_t Confini[] = {0x00, 0x01, 0x7F, 0x80, 0xFF, 0x19, 0x1A, 0x5A, 0x5B};
    const int passi = 1 + static_cast<int>(rng() % 4);
    for (int k = 0; k < passi; ++k) {
        switch (rng() % 6) {
        case 0: // change one byte, to a boundary value every other time
        case 1:
            if (!b.empty())
                b[pos()] = rng() % 2 ? Confini[rng() % sizeof Confini] : static_cast<uint8_t>(rng());
            break;
        case 2: // cut the tail
            b.resize(pos(1));
            break;
        case 3: { // a 16- or 32-bit count at its extremes
            const uint32_t v = (rng() % 2) ? 0xFFFFFFFFu : 0x7FFFFFFFu;
            const size_t at = pos();
            for (size_t i = 0; i < 4 && at + i < b.size(); ++i)
                b[at + i] = static_cast<uint8_t>(v >> (8 * i));
            break;
        }
        case 4: { // repeat a chunk
            if (b.empty()) break;
            const size_t from = pos(), len = std::min<size_t>(1 + rng() % 400, b.size() - from);
            const Bytes chunk(b.begin() + static_cast<long>(from), b.begin() + static_cast<long>(from + len));
            b.insert(b.begin() + static_cast<long>(pos(1)), chunk.begin(), chunk.end());
            break;
        }
        default: // insert random bytes
            b.insert(b.begin() + static_cast<long>(pos(1)), 1 + rng() % 8, static_cast<uint8_t>(rng()));
            break;
        }
    }
    return b;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s CORPUS_DIR [MUTATIONS]\n", argv[0]);
        return 2;
    }
    const long mutazioni = argc > 2 ? std::strtol(argv[2], nullptr, 10) : 3000;
    std::set<std::filesystem::path> files; // in order, so that every run is the same
    for (const auto& e : std::filesystem::directory_iterator(argv[1]))
        if (e.is_regular_file()) files.insert(e.path());
    std::vector<Bytes> semi;
    for (const auto& f : files) {
        std::ifstream in(f, std::ios::binary);
        semi.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    if (semi.empty()) {
        std::fprintf(stderr, "%s: empty corpus\n", argv[1]);
        return 1;
    }
    semi.push_back({});
    for (const Bytes& s : semi)
        LLVMFuzzerTestOneInput(s.data(), s.size());
    std::mt19937 rng(12345);
    for (long i = 0; i < mutazioni; ++i) {
        const Bytes b = Muta(semi[static_cast<size_t>(i) % semi.size()], rng);
        LLVMFuzzerTestOneInput(b.data(), b.size());
    }
    std::printf("%zu corpus files and %ld mutations opened\n", semi.size(), mutazioni);
    return 0;
}
