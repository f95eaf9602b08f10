#include "platform/DownloadFile.h"

#include "platform/DispositivoSalvataggio.h"
#include "settings/RispostaHttp.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QSet>
#include <QSslSocket>
#include <QTcpSocket>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <memory>
#include <optional>

namespace dv {

namespace {

EsitoDownload esito(ErroreDownload errore, int64_t valore = 0, const QString& dettaglio = {}) {
    return {errore, valore, dettaglio.left(300).toStdString()};
}

bool redirezione(int status) {
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

// What one request ended in: a failure, a redirect to follow, or the whole body written.
struct Passo {
    std::optional<EsitoDownload> fallito;
    QUrl redirect;
};

// One GET of url on a connection of its own, the body written to file. The deadline, the stop
// and the cap hold for the download as a whole; the idle time for this connection.
class Richiesta {
public:
    Richiesta(const QUrl& url, bool removeCache, const LimitiDownload& limiti, int64_t cap,
              DispositivoSalvataggio& file, int64_t& ricevuti)
        : m_url(url), m_removeCache(removeCache), m_limiti(limiti), m_cap(cap), m_file(file),
          m_ricevuti(ricevuti) {}

    Passo esegui(QTimer& totale, const std::function<bool()>& fermato) {
        // The deadline may have passed while the previous request of a redirect ended.
        if (!totale.isActive())
            return {esito(ErroreDownload::DurataEccessiva, m_limiti.totalTimeoutMs / 1000), {}};
        std::unique_ptr<QTcpSocket> socket;
        if (m_url.scheme() == QLatin1String("https")) {
            if (!QSslSocket::supportsSsl())
                return {esito(ErroreDownload::Rete, 0, QStringLiteral("no TLS support")), {}};
            socket = std::make_unique<QSslSocket>();
        } else {
            socket = std::make_unique<QTcpSocket>();
        }
        m_socket = socket.get();
        QTimer idle, poll;
        idle.setSingleShot(true);
        idle.setInterval(m_limiti.idleTimeoutMs);
        poll.setInterval(50);
        QObject::connect(&idle, &QTimer::timeout, &m_loop,
                         [&] { fine(esito(ErroreDownload::TempoScaduto, m_limiti.idleTimeoutMs / 1000)); });
        QObject::connect(&totale, &QTimer::timeout, &m_loop, [&] {
            fine(esito(ErroreDownload::DurataEccessiva, m_limiti.totalTimeoutMs / 1000));
        });
        QObject::connect(&poll, &QTimer::timeout, &m_loop, [&] {
            if (fermato()) fine(esito(ErroreDownload::Interrotto));
        });
        auto invia = [&] { socket->write(testaRichiesta()); };
        QObject::connect(socket.get(), &QTcpSocket::readyRead, &m_loop, [&] {
            idle.start();
            leggi();
        });
        QObject::connect(socket.get(), &QAbstractSocket::errorOccurred, &m_loop,
                         [&](QAbstractSocket::SocketError e) {
                             if (e == QAbstractSocket::RemoteHostClosedError)
                                 chiusa();
                             else if (e == QAbstractSocket::ConnectionRefusedError)
                                 fine(esito(ErroreDownload::ConnessioneRifiutata));
                             else if (e == QAbstractSocket::HostNotFoundError)
                                 fine(esito(ErroreDownload::ServerNonTrovato, 0, m_url.host()));
                             else
                                 fine(esito(ErroreDownload::Rete, 0, socket->errorString()));
                         });
        QObject::connect(socket.get(), &QAbstractSocket::disconnected, &m_loop, [&] { chiusa(); });
        const quint16 porta =
            static_cast<quint16>(m_url.port(m_url.scheme() == QLatin1String("https") ? 443 : 80));
        if (auto* ssl = qobject_cast<QSslSocket*>(socket.get())) {
            QObject::connect(ssl, &QSslSocket::encrypted, &m_loop, invia);
            ssl->connectToHostEncrypted(m_url.host(), porta);
        } else {
            QObject::connect(socket.get(), &QTcpSocket::connected, &m_loop, invia);
            socket->connectToHost(m_url.host(), porta);
        }
        idle.start();
        poll.start();
        if (!m_finito) m_loop.exec(QEventLoop::ExcludeUserInputEvents);
        socket->disconnect();
        socket->abort();
        return m_passo;
    }

private:
    QByteArray testaRichiesta() const {
        QByteArray target = m_url.path(QUrl::FullyEncoded).toLatin1();
        if (target.isEmpty()) target = "/";
        if (m_url.hasQuery()) target += "?" + m_url.query(QUrl::FullyEncoded).toLatin1();
        QByteArray host = m_url.host(QUrl::FullyEncoded).toLatin1();
        if (host.contains(':')) host = "[" + host + "]"; // an IPv6 address
        if (m_url.port() != -1) host += ":" + QByteArray::number(m_url.port());
        QByteArray r = "GET " + target + " HTTP/1.1\r\nHost: " + host +
                       "\r\nUser-Agent: Dorvanta\r\nAccept-Encoding: identity\r\nConnection: close\r\n";
        if (m_removeCache) r += "Cache-Control: no-cache\r\n";
        r += "Pragma: no-cache\r\n\r\n";
        return r;
    }

    void fine(std::optional<EsitoDownload> fallito) {
        if (m_finito) return;
        m_finito = true;
        m_passo.fallito = std::move(fallito);
        m_loop.quit();
    }

    void leggi() {
        const QByteArray dati = m_socket->readAll();
        std::string corpo;
        const RispostaHttp::Stato prima = m_risposta.stato();
        const RispostaHttp::Stato stato =
            m_risposta.aggiungi(std::string_view(dati.constData(), dati.size()), corpo);
        if (stato == RispostaHttp::Stato::Malformata) {
            fine(esito(ErroreDownload::Rete, 0, QStringLiteral("not an HTTP answer")));
            return;
        }
        // Once the head is there: a redirect or a failure needs no body.
        if (prima == RispostaHttp::Stato::Testa && stato != RispostaHttp::Stato::Testa) {
            const int status = m_risposta.status();
            if (redirezione(status) && !m_risposta.location().empty()) {
                m_passo.redirect = m_url.resolved(QUrl(QString::fromStdString(m_risposta.location())));
                fine(std::nullopt);
                return;
            }
            if (status < 200 || status > 299) {
                fine(esito(ErroreDownload::StatoHttp, status));
                return;
            }
            if (m_risposta.contentLength() > m_cap) {
                fine(esito(ErroreDownload::TroppoGrande, m_cap));
                return;
            }
        }
        if (m_risposta.stato() == RispostaHttp::Stato::Testa) return;
        m_ricevuti += static_cast<int64_t>(corpo.size());
        if (m_ricevuti > m_cap) {
            fine(esito(ErroreDownload::TroppoGrande, m_cap));
            return;
        }
        if (m_file.write(corpo.data(), static_cast<qint64>(corpo.size())) !=
            static_cast<qint64>(corpo.size())) {
            fine(esito(ErroreDownload::Scrittura, 0,
                       m_file.fileName() + QStringLiteral(": ") + m_file.errorString()));
            return;
        }
        if (stato == RispostaHttp::Stato::Completa) fine(std::nullopt);
    }

    // The connection ended: whatever is still buffered is read first.
    void chiusa() {
        if (m_finito) return;
        if (m_socket->bytesAvailable() > 0) leggi();
        if (m_finito) return;
        if (m_risposta.chiusa() == RispostaHttp::Stato::Completa)
            fine(std::nullopt);
        else
            fine(esito(ErroreDownload::Troncato));
    }

    QUrl m_url;
    bool m_removeCache;
    const LimitiDownload& m_limiti;
    int64_t m_cap;
    DispositivoSalvataggio& m_file;
    int64_t& m_ricevuti;
    QTcpSocket* m_socket = nullptr;
    QEventLoop m_loop;
    RispostaHttp m_risposta;
    bool m_finito = false;
    Passo m_passo;
};

} // namespace

EsitoDownload ScaricaFile(const std::string& url, const std::string& path, bool removeCache,
                          const LimitiDownload& limiti, const OpzioniDownload& opzioni) {
    const QUrl qurl(QString::fromStdString(url), QUrl::StrictMode);
    auto webScheme = [](const QUrl& u) {
        return u.isValid() && !u.host().isEmpty() &&
               (u.scheme() == QLatin1String("http") || u.scheme() == QLatin1String("https"));
    };
    if (!webScheme(qurl)) return esito(ErroreDownload::IndirizzoNonValido, 0, QString::fromStdString(url));
    const int64_t cap = opzioni.maxBytes > 0 ? std::min(opzioni.maxBytes, limiti.maxBytes) : limiti.maxBytes;
    const std::function<bool()> fermato = [&opzioni] { return opzioni.stop && opzioni.stop->load(); };
    if (fermato()) return esito(ErroreDownload::Interrotto);

    const QString target = QString::fromStdString(path);
    QDir().mkpath(QFileInfo(target).absolutePath());
    DispositivoSalvataggio file(target);
    if (!file.open(QIODevice::WriteOnly))
        return esito(ErroreDownload::Scrittura, 0, target + QStringLiteral(": ") + file.errorString());

    // 1. Each redirect is a new request, within the same scheme, to an address not seen before.
    QTimer totale;
    totale.setSingleShot(true);
    totale.setInterval(limiti.totalTimeoutMs);
    totale.start();
    QUrl attuale = qurl;
    QSet<QUrl> visti{qurl};
    std::optional<EsitoDownload> fallito;
    for (int redirect = 0;; ++redirect) {
        int64_t ricevuti = 0;
        Richiesta richiesta(attuale, removeCache, limiti, cap, file, ricevuti);
        const Passo passo = richiesta.esegui(totale, fermato);
        if (passo.fallito) {
            fallito = passo.fallito;
            break;
        }
        if (passo.redirect.isEmpty()) break;
        if (passo.redirect.scheme() != qurl.scheme() || !webScheme(passo.redirect)) {
            fallito = esito(ErroreDownload::ReindirizzamentoAltroSchema, 0, passo.redirect.toString());
            break;
        }
        if (redirect >= limiti.maxRedirects || visti.contains(passo.redirect)) {
            fallito = esito(ErroreDownload::TroppiReindirizzamenti, limiti.maxRedirects);
            break;
        }
        visti.insert(passo.redirect);
        attuale = passo.redirect;
    }
    // 2. Only a whole body takes the place of the file.
    if (fallito) {
        file.cancelWriting();
        return *fallito;
    }
    if (!file.commit())
        return esito(ErroreDownload::Scrittura, 0, target + QStringLiteral(": ") + file.errorString());
    return {};
}

bool DownloadFile(const std::string& url, const std::string& path, bool removeCache,
                  const LimitiDownload& limiti, std::string* error) {
    const EsitoDownload e = ScaricaFile(url, path, removeCache, limiti);
    if (!e.ok() && error) *error = MessaggioDownload(e);
    return e.ok();
}

Scaricatore ScaricatoreDiRete(const LimitiDownload& limiti) {
    return Scaricatore(
        [limiti](const std::string& url, const std::string& path, const OpzioniDownload& opzioni) {
            return ScaricaFile(url, path, true, limiti, opzioni);
        });
}

} // namespace dv
