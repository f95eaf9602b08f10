#include "server/DataServer.h"

#include "server/ArchivioDemo.h"
#include "server/ArchivioFiltro.h"
#include "settings/Online.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHttpServerRequest>
#include <QHttpServerResponder>
#include <QMetaEnum>
#include <QTime>
#include <QUrlQuery>

namespace {

constexpr const char* ArchivioSerale = "/public/10elotto/archivioro2.asp";
constexpr const char* Archivio5Min = "/public/10elotto5min/archivioro2.asp";
constexpr const char* DownloadMatrice = "/public/10elotto/matrici/download.aspx";
constexpr qint64 MaxFile = 256ll * 1024 * 1024;

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
    : QAbstractHttpServer(parent), m_dataDir(QFileInfo(dataDir).canonicalFilePath()) {}

bool DataServer::leggiFile(const QString& relative, QByteArray& body) const {
    if (m_dataDir.isEmpty()) return false;
    const QFileInfo info(QDir(m_dataDir).filePath(relative));
    const QString real = info.canonicalFilePath(); // links resolved: the real place must be inside
    if (real.isEmpty() || !real.startsWith(m_dataDir + QLatin1Char('/')) || !QFileInfo(real).isFile())
        return false;
    QFile file(real);
    if (file.size() > MaxFile || !file.open(QIODevice::ReadOnly)) return false;
    body = file.readAll();
    return true;
}

DataServer::Risposta DataServer::rispondi(const QHttpServerRequest& request) const {
    Risposta r;
    if (request.method() != QHttpServerRequest::Method::Get) {
        r.status = 405;
        r.body = "Only GET is served\n";
        return r;
    }
    const QString path = request.url().path(QUrl::FullyDecoded);
    const QUrlQuery query = request.query();

    if (m_demo && path == QLatin1String(ArchivioSerale)) {
        r.status = 200;
        r.mime = tipoDi(path);
        r.body = QByteArray::fromStdString(dv::server::ArchivioDemoSerale(oggi(), minutiOra()));
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
        if (m_demo) {
            r.status = 200;
            r.mime = tipoDi(path);
            r.body = QByteArray::fromStdString(dv::server::ArchivioDemo5Minuti(oggi(), minutiOra(), *dal));
            r.demo = true;
            return r;
        }
        QByteArray all;
        if (!leggiFile(path.mid(1), all)) return r;
        r.status = 200;
        r.mime = tipoDi(path);
        r.body = QByteArray::fromStdString(dv::server::FiltraArchivioDal(all.toStdString(), *dal));
        return r;
    }
    if (path == QLatin1String(DownloadMatrice)) {
        const QString name = query.queryItemValue(QStringLiteral("file"), QUrl::FullyDecoded);
        if (!query.hasQueryItem(QStringLiteral("file")) || !dv::NomeFileSicuro(name.toStdString())) {
            r.status = 400;
            r.body = "Expected ?file=NAME, a plain file name\n";
            return r;
        }
        if (!leggiFile(QStringLiteral("public/10elotto/matrici/") + name, r.body)) return r;
        r.status = 200;
        r.mime = tipoDi(name);
        return r;
    }
    const auto relative = dv::server::PercorsoRelativoSicuro(path.toStdString());
    if (relative && leggiFile(QString::fromStdString(*relative), r.body)) {
        r.status = 200;
        r.mime = tipoDi(path);
    }
    return r;
}

bool DataServer::handleRequest(const QHttpServerRequest& request, QTcpSocket* socket) {
    Risposta r = rispondi(request);
    if (r.status == 404) r.body = "Not found\n";
    if (log)
        log(QStringLiteral("%1 %2 -> %3 (%4 bytes%5)")
                .arg(QString::fromLatin1(QMetaEnum::fromType<QHttpServerRequest::Method>().valueToKey(
                                             static_cast<int>(request.method())))
                         .toUpper(),
                     request.url().toString(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::FullyEncoded))
                .arg(r.status)
                .arg(r.body.size())
                .arg(r.demo ? QStringLiteral(", synthetic demo draws") : QString()));
    makeResponder(request, socket)
        .write(r.body, {{"Content-Type", r.mime}, {"Cache-Control", "no-store"}},
               static_cast<QHttpServerResponder::StatusCode>(r.status));
    return true;
}

void DataServer::missingHandler(const QHttpServerRequest& request, QTcpSocket* socket) {
    makeResponder(request, socket)
        .write(QByteArray("Not found\n"), "text/plain", QHttpServerResponder::StatusCode::NotFound);
}
