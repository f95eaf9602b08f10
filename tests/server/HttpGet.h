// Plain GET requests for tests that need the status code and the body.
#pragma once

#include <QByteArray>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTcpSocket>
#include <QUrl>

#include <string>

namespace dv::test {

struct Risposta {
    int status = 0;
    QByteArray body;
};

inline Risposta httpGet(const std::string& url) {
    QNetworkAccessManager manager;
    QNetworkReply* reply = manager.get(QNetworkRequest(QUrl(QString::fromStdString(url))));
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    loop.exec();
    Risposta r{reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), reply->readAll()};
    reply->deleteLater();
    return r;
}

// A request sent byte for byte as given, so that paths reach the server unnormalised.
inline QByteArray rawRequest(quint16 port, const QByteArray& request) {
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), port);
    if (!socket.waitForConnected(5'000)) return {};
    socket.write(request);
    socket.waitForBytesWritten(5'000);
    // Read until the whole answer is there: its head and as many bytes as Content-Length says.
    QByteArray answer;
    while (socket.waitForReadyRead(2'000)) {
        answer += socket.readAll();
        const qsizetype head = answer.indexOf("\r\n\r\n");
        if (head < 0) continue;
        qsizetype length = 0;
        for (const QByteArray& line : answer.left(head).split('\n'))
            if (line.toLower().startsWith("content-length:")) length = line.mid(15).trimmed().toLongLong();
        if (answer.size() >= head + 4 + length) break;
    }
    return answer;
}

} // namespace dv::test
