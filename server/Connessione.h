// One client of the web server, from its request to the last byte of its answer. The request head
// is read only up to DataServer::MaxTesta bytes; a file answer is read from disk a piece at a time
// as the client takes what was sent, so that a slow client holds at most a few pieces in memory.
// The connection is dropped when the request is not complete within the timeout from connecting,
// or when the client takes nothing of its answer for a whole timeout.
#pragma once

#include "server/ArchivioFiltro.h"
#include "server/DataServer.h"

#include <QByteArray>
#include <QFile>
#include <QObject>
#include <QTimer>

#include <memory>

class QTcpSocket;

class Connessione : public QObject {
public:
    Connessione(QTcpSocket* socket, const DataServer& server);

private:
    enum class Stato { Testa, Corpo, Risposta, Chiusura };

    void leggi();
    // The head is complete: check it and answer, or wait for a small body first.
    void analizzaTesta(const QByteArray& testa);
    void rispondi();
    // An answer of the server's own (a refusal), then the connection closes.
    void rifiuta(int status, const QByteArray& testo, const QString& detail);
    void scriviTesta(int status, const QByteArray& mime, const QByteArray& lunghezza);
    // Sends more of the file while the client keeps up; closes at its end.
    void pompa();
    void chiudi();
    void scaduto();

    QTcpSocket* m_socket;
    const DataServer& m_server;
    QTimer m_timer;
    Stato m_stato = Stato::Testa;
    QByteArray m_testa;
    QByteArray m_method, m_target;
    qint64 m_restoCorpo = 0;
    QFile m_file;
    std::unique_ptr<dv::server::FiltroArchivioDal> m_filtro; // the answer is the filtered file, chunked
};
