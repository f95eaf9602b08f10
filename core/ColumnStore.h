// The store of a system's columns: up to 4,000,000 columns of up to 25 numbers.
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

namespace dv {

constexpr int32_t MaxColonne = 4'000'000;
constexpr int StorePositions = 25;

// Cell (c, p), column 1..4,000,000 and position 1..25, lies at (p-1) * 4,000,000 + (c-1): the
// same position of consecutive columns is contiguous. The 100,000,000 bytes are allocated on
// first write and only the pages that are written become resident, so a short system costs
// little memory. Reads of a store never written give 0.
class ColumnStore {
public:
    ColumnStore() = default;
    ColumnStore(const ColumnStore& other);
    ColumnStore& operator=(const ColumnStore& other);
    ColumnStore(ColumnStore&&) noexcept = default;
    ColumnStore& operator=(ColumnStore&&) noexcept = default;

    uint8_t get(int32_t c, int p) const {
        assert(c >= 1 && c <= MaxColonne && p >= 1 && p <= StorePositions);
        return m_cells ? m_cells[index(c, p)] : 0;
    }
    void set(int32_t c, int p, uint8_t v) {
        assert(c >= 1 && c <= MaxColonne && p >= 1 && p <= StorePositions);
        ensure();
        if (c > m_used) m_used = c;
        m_cells[index(c, p)] = v;
    }
    // Stores len numbers as column c.
    void setColumn(int32_t c, const uint8_t* numbers, int len) {
        ensure();
        if (c > m_used) m_used = c;
        // One position after another from the column's first cell: the byte stores could alias
        // the store's own pointer, which would be read again for every one of them.
        uint8_t* cell = &m_cells[index(c, 1)];
        for (int p = 0; p < len; ++p, cell += MaxColonne)
            *cell = numbers[p];
    }
    // Position p of the count columns from c on: all set to v.
    void fill(int32_t c, int p, uint8_t v, int32_t count) {
        assert(c >= 1 && count >= 0 && c - 1 + count <= MaxColonne && p >= 1 && p <= StorePositions);
        if (count == 0) return;
        ensure();
        if (c + count - 1 > m_used) m_used = c + count - 1;
        std::memset(&m_cells[index(c, p)], v, static_cast<size_t>(count));
    }
    // Position p of the count columns from c on: values[0..count-1], one per column.
    void copy(int32_t c, int p, const uint8_t* values, int32_t count) {
        assert(c >= 1 && count >= 0 && c - 1 + count <= MaxColonne && p >= 1 && p <= StorePositions);
        if (count == 0) return;
        ensure();
        if (c + count - 1 > m_used) m_used = c + count - 1;
        std::memcpy(&m_cells[index(c, p)], values, static_cast<size_t>(count));
    }
    // Copies positions 1..len of column c into out[0..len-1].
    void getColumn(int32_t c, uint8_t* out, int len) const {
        for (int p = 1; p <= len; ++p)
            out[p - 1] = get(c, p);
    }
    // Columns first..first+count-1, each as positions 1..len one after the other, into
    // out[0..count*len-1].
    void getColumns(int32_t first, int32_t count, int len, uint8_t* out) const;
    // Fills every cell with 0.
    void erase();
    // Exchanges columns a and b over positions 1..len.
    void swapColumns(int32_t a, int32_t b, int len);
    // Read-only view of position p of every column: column c lies at [c-1], MaxColonne bytes in a
    // row. nullptr while the store has never been written (every cell then reads 0).
    const uint8_t* position(int p) const {
        assert(p >= 1 && p <= StorePositions);
        return m_cells ? &m_cells[index(1, p)] : nullptr;
    }
    // The highest column written since the last erase.
    int32_t used() const { return m_used; }
    bool allocated() const { return m_cells != nullptr; }

private:
    static size_t index(int32_t c, int p) {
        return static_cast<size_t>(p - 1) * MaxColonne + static_cast<size_t>(c - 1);
    }
    void ensure() {
        if (!m_cells) allocate();
    }
    void allocate();

    struct FreeDeleter {
        void operator()(uint8_t* p) const;
    };
    std::unique_ptr<uint8_t[], FreeDeleter> m_cells;
    int32_t m_used = 0;
};

} // namespace dv
