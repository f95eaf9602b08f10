// The sweeping gesture of the tables of cells: pressing on a cell toggles it, and with the
// button held each further cell the pointer enters toggles once.
#pragma once

namespace dv {

class SweepGesture {
public:
    // The button goes down over cell index (-1 for no cell). Returns true when it toggles; a
    // press beside the cells starts no gesture.
    bool press(int index) {
        m_held = index >= 0;
        m_over = index;
        if (index < 0) return false;
        m_last = index;
        return true;
    }
    // The pointer moves over cell index (-1 for no cell). Returns true when that cell toggles:
    // with the button held, when the pointer has just entered it or when it is another cell
    // than the one last toggled.
    bool move(int index) {
        if (!m_held) return false;
        const bool entered = index != m_over;
        m_over = index;
        if (index < 0 || (!entered && index == m_last)) return false;
        m_last = index;
        return true;
    }
    void release() {
        m_held = false;
        m_over = -1;
    }
    // The index last toggled, -1 before the first.
    int last() const { return m_last; }
    bool held() const { return m_held; }

private:
    bool m_held = false;
    int m_over = -1;
    int m_last = -1;
};

} // namespace dv
