// The program's web server: answers GET requests from a data folder whose layout mirrors the
// paths. "/public/10elotto/ver.asp" is the file public/10elotto/ver.asp under the folder. Two
// paths are computed: the five-minute archive keeps only the draws from its "dal" date on, and a
// matrix download takes the file named by its "file" parameter from public/10elotto/matrici/.
// Nothing outside the data folder is ever served, nor any name beginning with ".". In demo mode
// the two archive paths answer with synthetic draws made up from the date (server/ArchivioDemo.h)
// instead of the folder's files.
//
// The HTTP layer is our own, small and strict, so that many clients at once cost little: files
// are streamed a piece at a time as the client takes them, a request head or body above a small
// limit is refused before it is read, a client that does not finish its request or stops taking
// its answer for a few seconds is dropped, and each log line is capped. One request a connection.
#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

class QTcpServer;

class DataServer : public QObject {
public:
    // Limits of a request: the request line's target, the whole head, a body (only GET is served).
    static constexpr int MaxUrl = 2048;
    static constexpr int MaxTesta = 8192;
    static constexpr int MaxCorpo = 1024;
    // Connections beyond this are closed at once: open files and sockets stay bounded.
    static constexpr int MaxConnessioni = 512;
    // The longest piece of a request target that goes into the log.
    static constexpr int MaxLog = 200;

    explicit DataServer(QString dataDir, QObject* parent = nullptr);

    // Serve the synthetic demo archives; the log marks every answer made of them.
    void setDemo(bool demo) { m_demo = demo; }
    bool demo() const { return m_demo; }
    // How long a client may take to send its request, and to take each piece of its answer.
    void setTimeoutMs(int ms) { m_timeoutMs = ms; }
    int timeoutMs() const { return m_timeoutMs; }

    // Starts listening; the port listened on, 0 when it cannot.
    quint16 listen(const QHostAddress& address, quint16 port);

    // Called with one line for each request answered or refused.
    std::function<void(const QString&)> log;

    // What a request is answered with: a body at hand, or a file streamed as it stands or through
    // the archive's date filter.
    struct Risposta {
        int status = 404;
        QByteArray body;
        QByteArray mime = "text/plain";
        QString file;           // when set, the body is this file's content
        std::optional<int> dal; // the file goes through the date filter
        bool demo = false;      // made of synthetic draws
    };
    Risposta rispondi(const QByteArray& method, const QByteArray& target) const;

    // Writes one log line about a request, its target shortened and made printable.
    void registra(const QByteArray& method, const QByteArray& target, int status,
                  const QString& detail) const;

private:
    void nuoveConnessioni();
    // The regular file at the path relative to the data folder, when it is inside it; else empty.
    QString fileDentro(const QString& relative) const;
    QByteArray demoSerale() const;
    QByteArray demo5Minuti(int dal) const;

    QTcpServer* m_server;
    QString m_dataDir; // canonical
    bool m_demo = false;
    int m_timeoutMs = 5000;
    int m_connessioni = 0;
    // The last demo answers, shared by every client that asks in the same minute.
    mutable QString m_chiaveSerale, m_chiave5Minuti;
    mutable QByteArray m_demoSerale, m_demo5Minuti;
};
