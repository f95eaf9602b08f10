// DownloadFile against dorvanta-server and against small servers that misbehave on purpose.
#include "platform/DownloadFile.h"

#include "server/ServerProcess.h"

#include <QDir>
#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

using dv::test::ServerProcess;

namespace {

QByteArray leggi(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// A server in this process that answers every request with what answer returns for it.
class ServerFinto {
public:
    explicit ServerFinto(std::function<void(QTcpSocket&, const QByteArray&)> answer) : m_answer(std::move(answer)) {
        m_server.listen(QHostAddress::LocalHost, 0);
        QObject::connect(&m_server, &QTcpServer::newConnection, [this] {
            while (QTcpSocket* s = m_server.nextPendingConnection()) {
                auto buffer = std::make_shared<QByteArray>();
                QObject::connect(s, &QTcpSocket::readyRead, s, [this, s, buffer] {
                    *buffer += s->readAll();
                    if (!buffer->contains("\r\n\r\n")) return;
                    m_request = *buffer;
                    buffer->clear();
                    m_answer(*s, m_request);
                });
            }
        });
    }
    std::string url(const std::string& path) const {
        return "http://127.0.0.1:" + std::to_string(m_server.serverPort()) + path;
    }
    QByteArray m_request;

private:
    QTcpServer m_server;
    std::function<void(QTcpSocket&, const QByteArray&)> m_answer;
};

} // namespace

TEST(DownloadFile, WholeBodyToThePathAndNothingOnFailure) {
    QTemporaryDir data, out;
    QByteArray body;
    for (int i = 0; i < 300'000; ++i) body.append(static_cast<char>(i * 7 % 256));
    QDir().mkpath(data.filePath(QStringLiteral("public")));
    QFile f(data.filePath(QStringLiteral("public/big.bin")));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(body);
    f.close();
    ServerProcess server(data.path());
    ASSERT_TRUE(server.running());

    const QString target = out.filePath(QStringLiteral("sub/big.bin"));
    std::string error;
    ASSERT_TRUE(dv::DownloadFile(server.url("/public/big.bin"), target.toStdString(), true, {}, &error)) << error;
    EXPECT_EQ(leggi(target), body);

    const QString missing = out.filePath(QStringLiteral("missing.txt"));
    EXPECT_FALSE(dv::DownloadFile(server.url("/public/none.txt"), missing.toStdString(), true, {}, &error));
    EXPECT_FALSE(QFile::exists(missing));
    // A failed download leaves a file already at the path as it was.
    EXPECT_FALSE(dv::DownloadFile(server.url("/public/none.txt"), target.toStdString(), true));
    EXPECT_EQ(leggi(target), body);

    dv::LimitiDownload small;
    small.maxBytes = 100'000;
    const QString refused = out.filePath(QStringLiteral("refused.bin"));
    EXPECT_FALSE(dv::DownloadFile(server.url("/public/big.bin"), refused.toStdString(), true, small, &error));
    EXPECT_EQ(error, "body too large");
    EXPECT_FALSE(QFile::exists(refused));
    EXPECT_TRUE(QDir(out.path()).entryList({QStringLiteral("*.bin*")}, QDir::Files).isEmpty());
}

TEST(DownloadFile, RefusesWhatIsNotAWebAddressAndAClosedPort) {
    QTemporaryDir out;
    const std::string target = out.filePath(QStringLiteral("x")).toStdString();
    EXPECT_FALSE(dv::DownloadFile("file:///etc/passwd", target, true));
    EXPECT_FALSE(dv::DownloadFile("not a url", target, true));
    QTcpServer closed;
    closed.listen(QHostAddress::LocalHost, 0);
    const auto port = closed.serverPort();
    closed.close();
    EXPECT_FALSE(dv::DownloadFile("http://127.0.0.1:" + std::to_string(port) + "/x", target, true));
    EXPECT_FALSE(QFile::exists(QString::fromStdString(target)));
}

TEST(DownloadFile, AsksForNoCachedCopy) {
    ServerFinto server([](QTcpSocket& s, const QByteArray&) {
        s.write("HTTP/1.1 200 OK\r\nContent-Length: 2\r\nConnection: close\r\n\r\nok");
        s.disconnectFromHost();
    });
    QTemporaryDir out;
    const QString target = out.filePath(QStringLiteral("x"));
    ASSERT_TRUE(dv::DownloadFile(server.url("/x"), target.toStdString(), true));
    EXPECT_EQ(leggi(target), "ok");
    EXPECT_TRUE(server.m_request.contains("Cache-Control: no-cache"));
}

TEST(DownloadFile, InterruptedBodyLeavesNoFile) {
    ServerFinto server([](QTcpSocket& s, const QByteArray&) {
        s.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nonly a part");
        s.flush();
        s.disconnectFromHost();
    });
    QTemporaryDir out;
    const QString target = out.filePath(QStringLiteral("x"));
    EXPECT_FALSE(dv::DownloadFile(server.url("/x"), target.toStdString(), true));
    EXPECT_FALSE(QFile::exists(target));
}

TEST(DownloadFile, GivesUpAfterTheTimeWithoutData) {
    ServerFinto server([](QTcpSocket& s, const QByteArray&) { s.write("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nab"); });
    QTemporaryDir out;
    const QString target = out.filePath(QStringLiteral("x"));
    dv::LimitiDownload quick;
    quick.idleTimeoutMs = 300;
    std::string error;
    EXPECT_FALSE(dv::DownloadFile(server.url("/x"), target.toStdString(), true, quick, &error));
    EXPECT_EQ(error, "no data for too long");
    EXPECT_FALSE(QFile::exists(target));
}

TEST(DownloadFile, FollowsRedirectsOnlyWithinTheScheme) {
    QTemporaryDir out;
    const QString target = out.filePath(QStringLiteral("x"));
    std::string finalUrl;
    ServerFinto server([&finalUrl](QTcpSocket& s, const QByteArray& request) {
        if (request.startsWith("GET /final")) {
            s.write("HTTP/1.1 200 OK\r\nContent-Length: 4\r\nConnection: close\r\n\r\ndone");
        } else if (request.startsWith("GET /to-https")) {
            s.write("HTTP/1.1 302 Found\r\nLocation: https://127.0.0.1:1/final\r\nContent-Length: 0\r\n\r\n");
        } else {
            s.write(QByteArray("HTTP/1.1 302 Found\r\nLocation: ") + QByteArray::fromStdString(finalUrl) +
                    "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
        }
        s.disconnectFromHost();
    });
    finalUrl = server.url("/final");
    ASSERT_TRUE(dv::DownloadFile(server.url("/start"), target.toStdString(), true));
    EXPECT_EQ(leggi(target), "done");
    std::string error;
    const QString other = out.filePath(QStringLiteral("y"));
    EXPECT_FALSE(dv::DownloadFile(server.url("/to-https"), other.toStdString(), true, {}, &error));
    EXPECT_EQ(error, "redirect to another scheme refused");
    EXPECT_FALSE(QFile::exists(other));
}
