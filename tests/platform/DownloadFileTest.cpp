// DownloadFile against a server of the test's own on 127.0.0.1, one that behaves and one that misbehaves.
#include "platform/DownloadFile.h"
#include "settings/RispostaHttp.h"

#include <QDir>
#include <QFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <memory>
#include <set>

using dv::ErroreDownload;

namespace {

QByteArray leggi(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// A server in this process that answers every request with what answer does for it. It runs in
// the event loop that DownloadFile runs while it waits.
class ServerOstile {
public:
    using Risposta = std::function<void(QTcpSocket&, const QByteArray& request)>;
    explicit ServerOstile(Risposta answer) : m_answer(std::move(answer)) {
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
    Risposta m_answer;
};

// Sends text, and hangs up unless told to hold the connection open.
ServerOstile::Risposta risponde(QByteArray text, bool chiude = true) {
    return [text, chiude](QTcpSocket& s, const QByteArray&) {
        s.write(text);
        s.flush();
        if (chiude) s.disconnectFromHost();
    };
}

// Sends the head, then one byte every 100 ms for as long as the client listens.
void gocciola(QTcpSocket& s, const QByteArray&) {
    s.write("HTTP/1.1 200 OK\r\nContent-Length: 500\r\n\r\n");
    auto* timer = new QTimer(&s);
    QObject::connect(timer, &QTimer::timeout, &s, [&s] { s.write("x"); });
    timer->start(100);
}

} // namespace

TEST(DownloadFile, FollowsARedirectWithinTheSchemeAsksForNoCachedCopyAndWritesTheWholeBody) {
    QByteArray body;
    for (int i = 0; i < 300'000; ++i)
        body.append(static_cast<char>(i * 7 % 256));
    std::string finale;
    ServerOstile server([&finale, &body](QTcpSocket& s, const QByteArray& request) {
        if (request.startsWith("GET /final"))
            s.write("HTTP/1.1 200 OK\r\nContent-Length: 300000\r\n\r\n" + body);
        else
            s.write(QByteArray("HTTP/1.1 302 Found\r\nLocation: ") + QByteArray::fromStdString(finale) +
                    "\r\nContent-Length: 0\r\n\r\n");
    });
    finale = server.url("/final");
    QTemporaryDir out;
    const QString target = out.filePath(QStringLiteral("sub/x"));
    std::string error;
    ASSERT_TRUE(dv::DownloadFile(server.url("/start"), target.toStdString(), true, {}, &error)) << error;
    EXPECT_EQ(leggi(target), body);
    EXPECT_TRUE(server.m_request.contains("Cache-Control: no-cache"));
}

// Each fault ends in its own reason, leaves the file at the target as it was and nothing beside
// it, and ends within the short limits the test gives.
TEST(DownloadFile, EveryFaultOfTheServerEndsInItsReasonAndLeavesTheOldFileAlone) {
    struct Guasto {
        const char* nome;
        ServerOstile::Risposta risposta; // empty: nobody listens at the port
        ErroreDownload atteso;
        int64_t valore = 0;
    };
    const Guasto guasti[] = {
        {"body cut short", risponde("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nonly a part"),
         ErroreDownload::Troncato},
        {"chunked body cut short",
         risponde("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nhello\r\n"),
         ErroreDownload::Troncato},
        {"a length and chunks both",
         risponde("HTTP/1.1 200 OK\r\nContent-Length: 5\r\nTransfer-Encoding: Chunked\r\n\r\n"
                  "5\r\nhello\r\n0\r\n\r\n"),
         ErroreDownload::Rete},
        {"stalled", risponde("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nab", false),
         ErroreDownload::TempoScaduto},
        {"trickling", gocciola, ErroreDownload::DurataEccessiva, 1},
        {"declared too large", risponde("HTTP/1.1 200 OK\r\nContent-Length: 5000\r\n\r\n", false),
         ErroreDownload::TroppoGrande, 1000},
        {"too large without a length",
         risponde("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + QByteArray(5000, 'y')),
         ErroreDownload::TroppoGrande, 1000},
        {"redirect to ftp",
         risponde("HTTP/1.1 302 Found\r\nLocation: ftp://127.0.0.1/x\r\nContent-Length: 0\r\n\r\n"),
         ErroreDownload::ReindirizzamentoAltroSchema},
        {"redirect loop",
         risponde("HTTP/1.1 302 Found\r\nLocation: /loop\r\nContent-Length: 0\r\n\r\n", false),
         ErroreDownload::TroppiReindirizzamenti, 3},
        {"server error", risponde("HTTP/1.1 500 Oops\r\nContent-Length: 3\r\n\r\nbad"),
         ErroreDownload::StatoHttp, 500},
        {"refused", {}, ErroreDownload::ConnessioneRifiutata},
        {"stopped by the user", gocciola, ErroreDownload::Interrotto},
    };
    dv::LimitiDownload limiti;
    limiti.idleTimeoutMs = 400;
    limiti.totalTimeoutMs = 1500;
    limiti.maxRedirects = 3;
    std::set<std::string> messaggi;
    for (const Guasto& g : guasti) {
        SCOPED_TRACE(g.nome);
        QTemporaryDir out;
        const QString target = out.filePath(QStringLiteral("x"));
        std::ofstream(target.toStdString()) << "old";
        std::string url;
        std::unique_ptr<ServerOstile> server;
        if (g.risposta) {
            server = std::make_unique<ServerOstile>(g.risposta);
            url = server->url("/loop");
        } else {
            QTcpServer closed;
            closed.listen(QHostAddress::LocalHost, 0);
            url = "http://127.0.0.1:" + std::to_string(closed.serverPort()) + "/x";
        }
        dv::OpzioniDownload opzioni;
        opzioni.maxBytes = 1000;
        auto stop = std::make_shared<std::atomic<bool>>(false);
        opzioni.stop = stop;
        if (g.atteso == ErroreDownload::Interrotto) QTimer::singleShot(300, [stop] { *stop = true; });

        const dv::EsitoDownload e = dv::ScaricaFile(url, target.toStdString(), true, limiti, opzioni);
        EXPECT_EQ(e.errore, g.atteso) << dv::MessaggioDownload(e);
        EXPECT_EQ(e.valore, g.valore);
        EXPECT_EQ(leggi(target), "old");
        EXPECT_EQ(QDir(out.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(),
                  1);
        messaggi.insert(dv::MessaggioDownload(e));
    }
    // Every kind of fault is told in its own words.
    EXPECT_EQ(messaggi.size(), 10u);
    EXPECT_EQ(messaggi.count("The server answered with HTTP status 500."), 1u);
}

TEST(DownloadFile, RefusesWhatIsNotAWebAddressAndCapsWhatAPlainDownloaderWrote) {
    QTemporaryDir out;
    const std::string target = out.filePath(QStringLiteral("x")).toStdString();
    EXPECT_EQ(dv::ScaricaFile("file:///etc/passwd", target, true).errore, ErroreDownload::IndirizzoNonValido);
    // A stopped downloader fetches nothing more; one that wrote too much has its file removed.
    const dv::Scaricatore grande = [](const std::string&, const std::string& path) {
        QFile f(QString::fromStdString(path));
        return f.open(QIODevice::WriteOnly) && f.write(QByteArray(2000, 'z')) == 2000;
    };
    EXPECT_EQ(grande.scarica("http://127.0.0.1/x", target, 1000).errore, ErroreDownload::TroppoGrande);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(target)));
    EXPECT_EQ(grande.conStop(std::make_shared<std::atomic<bool>>(true))
                  .scarica("http://127.0.0.1/x", target)
                  .errore,
              ErroreDownload::Interrotto);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(target)));
}

// A chunked answer after an interim 100 is read whole (pieces are the fuzz target's concern); cut
// before its last chunk it is not complete, and an endless head is refused.
TEST(RispostaHttp, ChunkedBodyAfterContinueAndCutShort) {
    const std::string risposta =
        "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
        "5;ext=1\r\nhello\r\nA\r\n, world!!!\r\n0\r\nX-Trailer: 1\r\n\r\n";
    dv::RispostaHttp r, cut, lunga;
    std::string corpo;
    EXPECT_EQ(r.aggiungi(risposta, corpo), dv::RispostaHttp::Stato::Completa);
    EXPECT_EQ(r.status(), 200);
    EXPECT_EQ(corpo, "hello, world!!!");
    cut.aggiungi(risposta.substr(0, risposta.size() - 20), corpo);
    EXPECT_EQ(cut.chiusa(), dv::RispostaHttp::Stato::Corpo);
    EXPECT_EQ(lunga.aggiungi("HTTP/1.1 200 OK\r\nX: " + std::string(40'000, 'a'), corpo),
              dv::RispostaHttp::Stato::Malformata);
}
