#include "core/ColumnStore.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace dv {

namespace {
constexpr size_t StoreBytes = static_cast<size_t>(MaxColonne) * StorePositions;
}

void ColumnStore::FreeDeleter::operator()(uint8_t* p) const { std::free(p); }

void ColumnStore::allocate() {
    // calloc of a large block maps zero pages: untouched positions never become resident.
    auto* p = static_cast<uint8_t*>(std::calloc(StoreBytes, 1));
    if (!p) throw std::bad_alloc();
    m_cells.reset(p);
}

ColumnStore::ColumnStore(const ColumnStore& other) { *this = other; }

ColumnStore& ColumnStore::operator=(const ColumnStore& other) {
    if (this == &other) return *this;
    erase();
    if (other.m_cells && other.m_used > 0) {
        ensure();
        for (int p = 1; p <= StorePositions; ++p)
            std::memcpy(&m_cells[index(1, p)], &other.m_cells[index(1, p)], static_cast<size_t>(other.m_used));
    }
    m_used = other.m_used;
    return *this;
}

void ColumnStore::erase() {
    if (m_cells && m_used > 0) {
        for (int p = 1; p <= StorePositions; ++p) std::memset(&m_cells[index(1, p)], 0, static_cast<size_t>(m_used));
    }
    m_used = 0;
}

void ColumnStore::getColumns(int32_t first, int32_t count, int len, uint8_t* out) const {
    assert(first >= 1 && count >= 0 && first - 1 + count <= MaxColonne && len >= 0 && len <= StorePositions);
    const auto stride = static_cast<size_t>(len);
    if (!m_cells) {
        std::memset(out, 0, static_cast<size_t>(count) * stride);
        return;
    }
    // Position by position: each read runs along one contiguous position of the store.
    for (int p = 1; p <= len; ++p) {
        const uint8_t* from = &m_cells[index(first, p)];
        uint8_t* to = out + (p - 1);
        for (int32_t i = 0; i < count; ++i)
            to[static_cast<size_t>(i) * stride] = from[i];
    }
}

void ColumnStore::swapColumns(int32_t a, int32_t b, int len) {
    ensure();
    if (a > m_used) m_used = a;
    if (b > m_used) m_used = b;
    for (int p = 1; p <= len; ++p) {
        uint8_t t = m_cells[index(a, p)];
        m_cells[index(a, p)] = m_cells[index(b, p)];
        m_cells[index(b, p)] = t;
    }
}

} // namespace dv
