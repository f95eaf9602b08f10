#include "core/cCombinazioni.h"

#include <cmath>

namespace dv {

void cCombinazioni::create(uint8_t n, uint8_t k) {
    m_n = n;
    m_k = k;
    if (k > n) {
        m_lastError = "k [" + std::to_string(k) + "] > n [" + std::to_string(n) + "]";
        throw ErroreProgramma(ErroreLogica, m_lastError);
    }
    clear();
}

void cCombinazioni::clear() {
    m_index = 0.0;
    m_total = binomiale(m_n, m_k);
    m_current.assign(static_cast<size_t>(m_k) + 1, 0);
}

int32_t cCombinazioni::Index() const { return static_cast<int32_t>(std::nearbyint(m_index)); }

uint8_t cCombinazioni::valAt(uint8_t position) const {
    return position < m_current.size() ? m_current[position] : 0;
}

void cCombinazioni::getNext() {
    if (m_index == 0.0) {
        m_index = 1.0;
        m_current.assign(static_cast<size_t>(m_k) + 1, 0);
        for (int i = 1; i <= m_k; ++i) m_current[static_cast<size_t>(i)] = static_cast<uint8_t>(i);
        return;
    }
    if (m_index >= m_total) return;
    m_index += 1.0;
    int j = m_k;
    while (j > 1 && m_current[static_cast<size_t>(j)] >= m_n - m_k + j) --j;
    ++m_current[static_cast<size_t>(j)];
    for (int p = j + 1; p <= m_k; ++p)
        m_current[static_cast<size_t>(p)] = static_cast<uint8_t>(m_current[static_cast<size_t>(p - 1)] + 1);
}

std::string cCombinazioni::toString() const {
    std::string s = "[";
    for (int i = 1; i <= m_k; ++i) {
        s += std::to_string(m_current[static_cast<size_t>(i)]);
        s += i < m_k ? "," : "]";
    }
    if (m_k == 0) s += "]";
    return s;
}

double cCombinazioni::prodotto(int a, int b) {
    double p = 1.0;
    for (int i = a; i <= b; ++i) p *= i;
    return p;
}

double cCombinazioni::binomiale(int n, int k) { return prodotto(n - k + 1, n) / prodotto(2, k); }

} // namespace dv
