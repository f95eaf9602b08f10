#pragma once

#include <QObject>
#include <QThread>

#include <atomic>

namespace dv {

// A window that goes while its worker runs: the worker is asked to stop, its result is no longer
// delivered to the window, and the window waits for it before its members go.
inline void FermaLavoro(QThread*& thread, std::atomic<bool>& ferma, QObject* finestra) {
    if (!thread) return;
    ferma.store(true);
    QObject::disconnect(thread, nullptr, finestra, nullptr);
    thread->wait();
    delete thread;
    thread = nullptr;
}

} // namespace dv
