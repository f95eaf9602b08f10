#include "platform/DownloadFile.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSaveFile>
#include <QTimer>
#include <QUrl>

namespace dv {

namespace {

void fallito(std::string* error, const QString& why) {
    if (error) *error = why.toStdString();
}

} // namespace

bool DownloadFile(const std::string& url, const std::string& path, bool removeCache, const LimitiDownload& limiti,
                  std::string* error) {
    const QUrl qurl(QString::fromStdString(url), QUrl::StrictMode);
    if (!qurl.isValid() || (qurl.scheme() != QLatin1String("http") && qurl.scheme() != QLatin1String("https"))) {
        fallito(error, QStringLiteral("not an http or https address: ") + QString::fromStdString(url));
        return false;
    }
    const QString target = QString::fromStdString(path);
    QDir().mkpath(QFileInfo(target).absolutePath());
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly)) {
        fallito(error, file.errorString());
        return false;
    }

    QNetworkAccessManager manager;
    manager.setCache(nullptr);
    QNetworkRequest request(qurl);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    if (removeCache) request.setRawHeader("Cache-Control", "no-cache");
    request.setRawHeader("Pragma", "no-cache");
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::UserVerifiedRedirectPolicy);
    request.setMaximumRedirectsAllowed(limiti.maxRedirects);

    QNetworkReply* reply = manager.get(request);
    QEventLoop loop;
    QTimer idle;
    idle.setSingleShot(true);
    idle.setInterval(limiti.idleTimeoutMs);
    QString why;
    qint64 received = 0;
    bool writeFailed = false;

    auto give_up = [&](const QString& reason) {
        if (why.isEmpty()) why = reason;
        reply->abort();
    };
    QObject::connect(&idle, &QTimer::timeout, &loop, [&] { give_up(QStringLiteral("no data for too long")); });
    QObject::connect(reply, &QNetworkReply::redirected, &loop, [&](const QUrl& next) {
        if (next.scheme() == qurl.scheme()) emit reply->redirectAllowed();
        else give_up(QStringLiteral("redirect to another scheme refused"));
    });
    QObject::connect(reply, &QNetworkReply::metaDataChanged, &loop, [&] {
        const QVariant length = reply->header(QNetworkRequest::ContentLengthHeader);
        if (length.isValid() && length.toLongLong() > limiti.maxBytes) give_up(QStringLiteral("body too large"));
    });
    QObject::connect(reply, &QNetworkReply::readyRead, &loop, [&] {
        idle.start();
        const QByteArray chunk = reply->readAll();
        received += chunk.size();
        if (received > limiti.maxBytes) {
            give_up(QStringLiteral("body too large"));
            return;
        }
        if (file.write(chunk) != chunk.size()) {
            writeFailed = true;
            give_up(file.errorString());
        }
    });
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    idle.start();
    if (!reply->isFinished()) loop.exec(QEventLoop::ExcludeUserInputEvents);
    idle.stop();

    if (why.isEmpty() && reply->error() == QNetworkReply::NoError) {
        const QByteArray rest = reply->readAll();
        received += rest.size();
        if (received > limiti.maxBytes) why = QStringLiteral("body too large");
        else if (file.write(rest) != rest.size()) why = file.errorString();
    }
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (why.isEmpty() && reply->error() != QNetworkReply::NoError) why = reply->errorString();
    if (why.isEmpty() && (status < 200 || status > 299)) why = QStringLiteral("HTTP status %1").arg(status);
    reply->deleteLater();

    if (!why.isEmpty() || writeFailed) {
        file.cancelWriting();
        fallito(error, why);
        return false;
    }
    if (!file.commit()) {
        fallito(error, file.errorString());
        return false;
    }
    return true;
}

} // namespace dv
