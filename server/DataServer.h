// The program's web server: answers GET requests from a data folder whose layout mirrors the
// paths. "/public/10elotto/ver.asp" is the file public/10elotto/ver.asp under the folder. Two
// paths are computed: the five-minute archive keeps only the draws from its "dal" date on, and a
// matrix download takes the file named by its "file" parameter from public/10elotto/matrici/.
// Nothing outside the data folder is ever served. In demo mode the two archive paths answer with
// synthetic draws made up from the date (server/ArchivioDemo.h) instead of the folder's files.
#pragma once

#include <QAbstractHttpServer>
#include <QString>

#include <functional>

class DataServer : public QAbstractHttpServer {
    Q_OBJECT
public:
    explicit DataServer(QString dataDir, QObject* parent = nullptr);

    // Serve the synthetic demo archives; the log marks every answer made of them.
    void setDemo(bool demo) { m_demo = demo; }
    bool demo() const { return m_demo; }

    // Called with one line for each request answered.
    std::function<void(const QString&)> log;

protected:
    bool handleRequest(const QHttpServerRequest& request, QTcpSocket* socket) override;
    void missingHandler(const QHttpServerRequest& request, QTcpSocket* socket) override;

private:
    struct Risposta {
        int status = 404;
        QByteArray body;
        QByteArray mime = "text/plain";
        bool demo = false; // made of synthetic draws
    };
    Risposta rispondi(const QHttpServerRequest& request) const;
    // The file at the path relative to the data folder, when it is a regular file inside it.
    bool leggiFile(const QString& relative, QByteArray& body) const;

    QString m_dataDir; // canonical
    bool m_demo = false;
};
