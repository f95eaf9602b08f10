// Starts dorvanta-server on 127.0.0.1 with a free port for one test, and stops it at the end.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <string>

namespace dv::test {

class ServerProcess {
public:
    // extra: further arguments, such as "--demo".
    explicit ServerProcess(const QString& dataDir, const QStringList& extra = {}) {
        m_process.setProgram(QStringLiteral(DV_SERVER_BINARY));
        m_process.setArguments(
            QStringList{QStringLiteral("--data"), dataDir, QStringLiteral("--port"), QStringLiteral("0")} +
            extra);
        m_process.start();
        if (!m_process.waitForStarted(10'000)) return;
        // The first line is "Listening on http://127.0.0.1:PORT/".
        while (!m_process.canReadLine() && m_process.waitForReadyRead(10'000)) {
        }
        const QString first = QString::fromUtf8(m_process.readLine()).trimmed();
        const QString prefix = QStringLiteral("Listening on ");
        if (first.startsWith(prefix)) {
            m_base = first.mid(prefix.size());
            if (m_base.endsWith(QLatin1Char('/'))) m_base.chop(1);
        }
    }
    ~ServerProcess() {
        m_process.kill();
        m_process.waitForFinished(5'000);
    }
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    bool running() const { return !m_base.isEmpty(); }
    qint64 pid() const { return m_process.processId(); }
    // "http://127.0.0.1:PORT", without a closing "/".
    std::string base() const { return m_base.toStdString(); }
    std::string url(const std::string& path) const { return base() + path; }
    quint16 port() const { return static_cast<quint16>(m_base.section(QLatin1Char(':'), -1).toUInt()); }
    // The log lines printed since the address.
    QStringList logLines() {
        m_process.waitForReadyRead(200);
        m_log += QString::fromUtf8(m_process.readAllStandardOutput());
        return m_log.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private:
    QProcess m_process;
    QString m_base;
    QString m_log;
};

} // namespace dv::test
