// A Qt device over the program's one safe writer, for Qt code that writes a file (a PDF, a
// download): a temporary file of its own beside the target, of the name pattern the start-up
// clean-up knows, put in place by commit() only once complete and flushed to disk.
#pragma once

#include "settings/ScritturaSicura.h"

#include <QIODevice>
#include <QString>

namespace dv {

class DispositivoSalvataggio : public QIODevice {
public:
    // Open for writing at once; when the temporary file could not be made, errore() says why and
    // every write fails quietly.
    explicit DispositivoSalvataggio(const QString& path) : m_path(path), m_file(path.toStdString()) {
        QIODevice::open(QIODevice::WriteOnly);
        if (m_file.errore() != 0) setErrorString(QString::fromUtf8(CausaErrore(m_file.errore()).inglese));
    }
    // Already open for writing; false when the temporary file could not be made.
    bool open(OpenMode mode) override { return m_file.errore() == 0 && (isOpen() || QIODevice::open(mode)); }
    bool isSequential() const override { return true; }
    QString fileName() const { return m_path; }
    int errore() const { return m_file.errore(); }
    // Puts the file in the target's place; false (the target as it was) on any failure.
    bool commit() {
        close();
        const int e = m_file.conferma();
        if (e != 0) setErrorString(QString::fromUtf8(CausaErrore(e).inglese));
        return e == 0;
    }
    // Nothing to do: a save never confirmed removes its temporary file when destroyed.
    void cancelWriting() {}

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 len) override {
        if (m_file.scrivi(data, static_cast<size_t>(len))) return len;
        setErrorString(QString::fromUtf8(CausaErrore(m_file.errore()).inglese));
        return -1;
    }

private:
    QString m_path;
    ScritturaSicura m_file;
};

} // namespace dv
