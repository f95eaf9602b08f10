#include "server/DataServer.h"

#include "server/ArchivioDemo.h"
#include "server/ArchivioFiltro.h"
#include "server/Connessione.h"
#include "settings/Online.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTime>
#include <QUrl>
#include <QUrlQuery>

namespace {

constexpr const char* ArchivioSerale = "/public/10elotto/archivioro2.asp";
constexpr const char* Archivio5Min = "/public/10elotto5min/archivioro2.asp";
constexpr const char* DownloadMatrice = "/public/10elotto/matrici/download.aspx";

QByteArray tipoDi(const QString& path) {
    if (path.endsWith(QLatin1String(".html"))) return "text/html; charset=windows-1252";
    if (path.endsWith(QLatin1String(".mqvn"))) return "application/octet-stream";
    return "text/plain; charset=windows-1252";
}

// Today as days since 30 December 1899, and the minutes since midnight, for the demo archives.
double oggi() {
    return static_cast<double>(QDate(1899, 12, 30).daysTo(QDate::currentDate()));
}
int minutiOra() {
    return QTime::currentTime().msecsSinceStartOfDay() / 60'000;
}

} // namespace

DataServer::DataServer(QString dataDir, QObject* parent)
    : QObject(parent), m_server(new QTcpServer(this)), m_dataDir(QFileInfo(dataDir).canonicalFilePath()) {
    connect(m_server, &QTcpServer::newConnection, this, [this] { nuoveConnessioni(); });
}

quint16 DataServer::listen(const QHostAddress& address, quint16 port) {
    // A burst of clients waits in the system's queue instead of being turned away for a second.
    m_server->setListenBacklogSize(MaxConnessioni);
    return m_server->listen(address, port) ? m_server->serverPort() : 0;
}

void DataServer::nuoveConnessioni() {
    while (QTcpSocket* socket = m_server->nextPendingConnection()) {
        if (m_connessioni >= MaxConnessioni) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        ++m_connessioni;
        auto* c = new Connessione(socket, *this);
        connect(c, &QObject::destroyed, this, [this] { --m_connessioni; });
    }
}

void DataServer::registra(const QByteArray& method, const QByteArray& target, int status,
                          const QString& detail) const {
    if (!log) return;
    QByteArray shown = target.left(MaxLog);
    for (char& c : shown)
        if (static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) > 0x7e) c = '?';
    if (target.size() > MaxLog) shown += "...";
    log(QStringLiteral("%1 %2 -> %3 (%4)")
            .arg(QString::fromLatin1(method.left(16)).toUpper(), QString::fromLatin1(shown),
                 status > 0 ? QString::number(status) : QStringLiteral("dropped"), detail));
}

QString DataServer::fileDentro(const QString& relative) const {
    if (m_dataDir.isEmpty()) return {};
    const QFileInfo info(QDir(m_dataDir).filePath(relative));
    const QString real = info.canonicalFilePath(); // links resolved: the real place must be inside
    if (real.isEmpty() || !real.startsWith(m_dataDir + QLatin1Char('/')) || !QFileInfo(real).isFile())
        return {};
    return real;
}

QByteArray DataServer::demoSerale() const {
    const QString chiave = QStringLiteral("%1 %2").arg(oggi()).arg(minutiOra());
    if (chiave != m_chiaveSerale) {
        m_demoSerale = QByteArray::fromStdString(dv::server::ArchivioDemoSerale(oggi(), minutiOra()));
        m_chiaveSerale = chiave;
    }
    return m_demoSerale;
}

QByteArray DataServer::demo5Minuti(int dal) const {
    const QString chiave = QStringLiteral("%1 %2 %3").arg(oggi()).arg(minutiOra()).arg(dal);
    if (chiave != m_chiave5Minuti) {
        m_demo5Minuti = QByteArray::fromStdString(dv::server::ArchivioDemo5Minuti(oggi(), minutiOra(), dal));
        m_chiave5Minuti = chiave;
    }
    return m_demo5Minuti;
}

DataServer::Risposta DataServer::rispondi(const QByteArray& method, const QByteArray& target) const {
    Risposta r;
    if (method != "GET") {
        r.status = 405;
        r.body = "Only GET is served\n";
        return r;
    }
    const qsizetype mark = target.indexOf('?');
    const QString path = QUrl::fromPercentEncoding(target.left(mark < 0 ? target.size() : mark));
    const QUrlQuery query(mark < 0 ? QString() : QString::fromLatin1(target.mid(mark + 1)));

    if (m_demo && path == QLatin1String(ArchivioSerale)) {
        r.status = 200;
        r.mime = tipoDi(path);
        r.body = demoSerale();
        r.demo = true;
        return r;
    }
    if (path == QLatin1String(Archivio5Min)) {
        const auto dal = dv::server::DataParametro(query.queryItemValue(QStringLiteral("dal")).toStdString());
        if (!dal || query.queryItems().size() != 1) {
            r.status = 400;
            r.body = "Expected ?dal=YYYYMMDD\n";
            return r;
        }
        r.mime = tipoDi(path);
        if (m_demo) {
            r.status = 200;
            r.body = demo5Minuti(*dal);
            r.demo = true;
            return r;
        }
        r.file = fileDentro(path.mid(1));
        if (!r.file.isEmpty()) {
            r.status = 200;
            r.dal = dal;
        }
        return r;
    }
    if (path == QLatin1String(DownloadMatrice)) {
        const QString name = query.queryItemValue(QStringLiteral("file"), QUrl::FullyDecoded);
        if (!query.hasQueryItem(QStringLiteral("file")) || !dv::NomeFileSicuro(name.toStdString()) ||
            name.startsWith(QLatin1Char('.'))) {
            r.status = 400;
            r.body = "Expected ?file=NAME, a plain file name\n";
            return r;
        }
        r.file = fileDentro(QStringLiteral("public/10elotto/matrici/") + name);
        if (!r.file.isEmpty()) {
            r.status = 200;
            r.mime = tipoDi(name);
        }
        return r;
    }
    const auto relative = dv::server::PercorsoRelativoSicuro(path.toStdString());
    if (relative) r.file = fileDentro(QString::fromStdString(*relative));
    if (!r.file.isEmpty()) {
        r.status = 200;
        r.mime = tipoDi(path);
    }
    return r;
}
