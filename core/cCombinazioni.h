// Walks all k-subsets of 1..n in lexicographic order, one at a time, keeping only the current
// subset and its counters.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace dv {

// The error number of the program's own logic errors.
constexpr int32_t ErroreLogica = -2147211504;

// A logic error raised by the program, with its number and description.
class ErroreProgramma : public std::runtime_error {
public:
    ErroreProgramma(int32_t numero, const std::string& descrizione)
        : std::runtime_error(descrizione), m_numero(numero) {}
    int32_t numero() const { return m_numero; }

private:
    int32_t m_numero;
};

class cCombinazioni {
public:
    // Sets n and k and rewinds; throws ErroreProgramma when k exceeds n, keeping the values.
    void create(uint8_t n, uint8_t k);
    // Back to before the first combination; the total recomputed, the combination zeroed.
    void clear();
    // The number of combinations, as a 64-bit float (approximate beyond 2^53).
    double size() const { return m_total; }
    // Combinations produced so far, rounded.
    int32_t Index() const;
    bool hasNext() const { return m_index < m_total; }
    // The number at position 1..k of the current combination; 0 before the first getNext.
    uint8_t valAt(uint8_t position) const;
    // Steps to the next combination; after the last one nothing changes.
    void getNext();
    // "[1,2,3]".
    std::string toString() const;
    // Positions 1..k at indices 1..k; index 0 unused.
    std::vector<uint8_t> toByteArray() const { return m_current; }
    const std::string& lastError() const { return m_lastError; }

private:
    static double binomiale(int n, int k);
    static double prodotto(int a, int b);

    uint8_t m_n = 0;
    uint8_t m_k = 0;
    std::vector<uint8_t> m_current{0};
    double m_total = 0.0;
    double m_index = 0.0;
    std::string m_lastError;
};

} // namespace dv
