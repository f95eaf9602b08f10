// A download run off the window thread while a small modal window waits for it with a stop button.
#pragma once

#include <atomic>
#include <functional>
#include <memory>

class QWidget;

namespace dv {

class Ui;

// Runs lavoro on a thread of its own, handing it the stop flag, and returns once it has ended.
// Meanwhile a modal window over parent says "0257" (downloading) and offers "0191" (stop), which,
// like Escape or closing it, sets the flag; the other windows take no input.
void EseguiConAttesa(QWidget* parent, Ui& ui,
                     const std::function<void(std::shared_ptr<const std::atomic<bool>> stop)>& lavoro);

} // namespace dv
