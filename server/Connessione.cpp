#include "server/Connessione.h"

#include <QTcpSocket>

#include <string>

namespace {

// A piece of a file read at a time, and how much may wait in the socket before reading more.
constexpr qint64 Pezzo = 32 * 1024;
constexpr qint64 Riserva = 64 * 1024;

QByteArray testoStato(int status) {
    switch (status) {
    case 200:
        return "OK";
    case 400:
        return "Bad Request";
    case 404:
        return "Not Found";
    case 405:
        return "Method Not Allowed";
    case 413:
        return "Content Too Large";
    case 414:
        return "URI Too Long";
    case 431:
        return "Request Header Fields Too Large";
    default:
        return "Error";
    }
}

} // namespace

Connessione::Connessione(QTcpSocket* socket, const DataServer& server)
    : QObject(socket), m_socket(socket), m_server(server) {
    // Qt reads from the system no further ahead than this: a large body is never taken in.
    m_socket->setReadBufferSize(DataServer::MaxTesta);
    // And the system holds little of an answer that the client does not take.
    m_socket->setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, 128 * 1024);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] { scaduto(); });
    connect(m_socket, &QTcpSocket::readyRead, this, [this] { leggi(); });
    connect(m_socket, &QTcpSocket::bytesWritten, this, [this] {
        m_timer.start(m_server.timeoutMs()); // the client is taking its answer
        if (m_stato == Stato::Risposta) pompa();
    });
    connect(m_socket, &QTcpSocket::disconnected, m_socket, &QObject::deleteLater);
    connect(m_socket, &QTcpSocket::errorOccurred, m_socket, [this] {
        if (m_socket->state() == QAbstractSocket::UnconnectedState) m_socket->deleteLater();
    });
    m_timer.start(m_server.timeoutMs()); // the whole request must come within this
    leggi();
}

void Connessione::leggi() {
    if (m_stato == Stato::Testa) {
        const qsizetype prima = m_testa.size();
        m_testa += m_socket->read(DataServer::MaxTesta - m_testa.size());
        // The end of the head may straddle what was there and what came.
        const qsizetype da = std::max<qsizetype>(0, prima - 3);
        qsizetype fine = m_testa.indexOf("\r\n\r\n", da);
        qsizetype dopo = fine + 4;
        if (fine < 0) {
            fine = m_testa.indexOf("\n\n", std::max<qsizetype>(0, prima - 1));
            dopo = fine + 2;
        }
        if (fine < 0) {
            const qsizetype riga = m_testa.indexOf('\n');
            if ((riga < 0 ? m_testa.size() : riga) > DataServer::MaxUrl + 32)
                rifiuta(414, "Request line too long\n", QStringLiteral("request line too long"));
            else if (m_testa.size() >= DataServer::MaxTesta)
                rifiuta(431, "Request head too long\n", QStringLiteral("request head too long"));
            return;
        }
        const QByteArray resto = m_testa.mid(dopo);
        m_testa.truncate(fine);
        analizzaTesta(m_testa);
        if (m_stato == Stato::Corpo) m_restoCorpo -= resto.size();
    } else if (m_stato == Stato::Corpo) {
        m_restoCorpo -= m_socket->read(m_restoCorpo).size();
    } else {
        m_socket->read(DataServer::MaxTesta); // one request a connection: anything more is dropped
        return;
    }
    if (m_stato == Stato::Corpo && m_restoCorpo <= 0) rispondi();
}

void Connessione::analizzaTesta(const QByteArray& testa) {
    QList<QByteArray> righe = testa.split('\n');
    for (QByteArray& r : righe)
        if (r.endsWith('\r')) r.chop(1);
    const QList<QByteArray> prima = righe.front().split(' ');
    if (prima.size() != 3 || !prima.at(2).startsWith("HTTP/1.") || !prima.at(1).startsWith('/')) {
        m_target = righe.front();
        rifiuta(400, "Bad request\n", QStringLiteral("malformed request line"));
        return;
    }
    m_method = prima.at(0);
    m_target = prima.at(1);
    if (m_target.size() > DataServer::MaxUrl) {
        rifiuta(414, "Request target too long\n", QStringLiteral("target too long"));
        return;
    }
    qint64 lunghezza = 0;
    for (qsizetype i = 1; i < righe.size(); ++i) {
        const QByteArray& r = righe.at(i);
        const qsizetype due = r.indexOf(':');
        if (due <= 0) continue;
        const QByteArray nome = r.left(due).trimmed().toLower();
        const QByteArray valore = r.mid(due + 1).trimmed();
        if (nome == "transfer-encoding") {
            rifiuta(413, "Request bodies are not accepted\n", QStringLiteral("body of unannounced length"));
            return;
        }
        if (nome == "content-length") {
            bool ok = false;
            lunghezza = valore.toLongLong(&ok);
            if (!ok || lunghezza < 0) {
                rifiuta(400, "Bad Content-Length\n", QStringLiteral("bad Content-Length"));
                return;
            }
        }
    }
    if (lunghezza > DataServer::MaxCorpo) {
        rifiuta(413, "Request body too large\n", QStringLiteral("body of %1 bytes refused").arg(lunghezza));
        return;
    }
    // A small body is read and dropped before answering, so that closing does not reset the client.
    m_restoCorpo = lunghezza;
    m_stato = Stato::Corpo;
}

void Connessione::rispondi() {
    DataServer::Risposta r = m_server.rispondi(m_method, m_target);
    if (!r.file.isEmpty()) {
        m_file.setFileName(r.file);
        if (!m_file.open(QIODevice::ReadOnly)) r = {};
    }
    if (r.status == 404) r.body = "Not found\n";
    const QString demo = r.demo ? QStringLiteral(", synthetic demo draws") : QString();
    if (r.dal) {
        m_server.registra(m_method, m_target, r.status, QStringLiteral("filtered, streamed%1").arg(demo));
        m_filtro = std::make_unique<dv::server::FiltroArchivioDal>(*r.dal);
        scriviTesta(r.status, r.mime, {});
    } else if (m_file.isOpen()) {
        m_server.registra(m_method, m_target, r.status,
                          QStringLiteral("%1 bytes, streamed").arg(m_file.size()));
        scriviTesta(r.status, r.mime, QByteArray::number(m_file.size()));
    } else {
        m_server.registra(m_method, m_target, r.status,
                          QStringLiteral("%1 bytes%2").arg(r.body.size()).arg(demo));
        scriviTesta(r.status, r.mime, QByteArray::number(r.body.size()));
        m_socket->write(r.body);
        chiudi();
        return;
    }
    m_stato = Stato::Risposta;
    pompa();
}

void Connessione::rifiuta(int status, const QByteArray& testo, const QString& detail) {
    m_server.registra(m_method.isEmpty() ? QByteArray("-") : m_method, m_target, status, detail);
    scriviTesta(status, "text/plain", QByteArray::number(testo.size()));
    m_socket->write(testo);
    chiudi();
}

void Connessione::scriviTesta(int status, const QByteArray& mime, const QByteArray& lunghezza) {
    QByteArray testa = "HTTP/1.1 " + QByteArray::number(status) + ' ' + testoStato(status) +
                       "\r\nContent-Type: " + mime + "\r\nCache-Control: no-store\r\nConnection: close\r\n";
    testa += lunghezza.isEmpty() ? QByteArray("Transfer-Encoding: chunked\r\n")
                                 : "Content-Length: " + lunghezza + "\r\n";
    m_socket->write(testa + "\r\n");
}

void Connessione::pompa() {
    std::string filtrato;
    while (m_stato == Stato::Risposta && m_socket->bytesToWrite() < Riserva) {
        const QByteArray pezzo = m_file.read(Pezzo);
        const bool finito = pezzo.size() < Pezzo;
        if (!m_filtro) {
            m_socket->write(pezzo);
        } else {
            filtrato.clear();
            m_filtro->aggiungi(std::string_view(pezzo.constData(), pezzo.size()), filtrato);
            if (finito) m_filtro->fine(filtrato);
            if (!filtrato.empty())
                m_socket->write(QByteArray::number(static_cast<qulonglong>(filtrato.size()), 16) + "\r\n" +
                                QByteArray::fromStdString(filtrato) + "\r\n");
            if (finito) m_socket->write("0\r\n\r\n");
        }
        if (finito) {
            m_file.close();
            chiudi();
        }
    }
}

void Connessione::chiudi() {
    m_stato = Stato::Chiusura;
    m_timer.start(m_server.timeoutMs()); // the rest of the answer must be taken within this
    m_socket->disconnectFromHost();
}

void Connessione::scaduto() {
    if (m_stato == Stato::Testa || m_stato == Stato::Corpo)
        m_server.registra(m_method.isEmpty() ? QByteArray("-") : m_method, m_target, 0,
                          QStringLiteral("request not complete in time"));
    else
        m_server.registra(m_method, m_target, 0, QStringLiteral("client stopped taking its answer"));
    m_socket->abort();
    m_socket->deleteLater();
}
