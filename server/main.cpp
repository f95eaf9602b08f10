// dorvanta-server --data DIR [--demo] [--listen ADDRESS] [--port PORT] [--timeout SECONDS]
// Serves the program's files from DIR. Prints the address it listens on, then one line a request.
// --demo answers the two archive paths with synthetic draws made up from the date (DIR is then
// optional): a fresh machine sees every archive window work without any real archive.
#include "server/DataServer.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QHostAddress>
#include <QTextStream>

#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("dorvanta-server"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("The web server of Dorvanta: serves its files from a data folder."));
    parser.addHelpOption();
    const QCommandLineOption data(QStringLiteral("data"), QStringLiteral("The data folder."),
                                  QStringLiteral("DIR"));
    const QCommandLineOption listen(QStringLiteral("listen"),
                                    QStringLiteral("Address to listen on (127.0.0.1)."),
                                    QStringLiteral("ADDRESS"), QStringLiteral("127.0.0.1"));
    const QCommandLineOption port(QStringLiteral("port"), QStringLiteral("Port (8090; 0 for any free port)."),
                                  QStringLiteral("PORT"), QStringLiteral("8090"));
    const QCommandLineOption demo(
        QStringLiteral("demo"),
        QStringLiteral("Serve synthetic demo draws (not real results) for the two archives."));
    const QCommandLineOption timeout(
        QStringLiteral("timeout"),
        QStringLiteral("Seconds a client may take to send its request or to take a piece of its answer (5)."),
        QStringLiteral("SECONDS"), QStringLiteral("5"));
    parser.addOptions({data, listen, port, demo, timeout});
    parser.process(app);

    QTextStream err(stderr);
    const bool demoMode = parser.isSet(demo);
    if ((!demoMode || parser.isSet(data)) &&
        (!parser.isSet(data) || !QFileInfo(parser.value(data)).isDir())) {
        err << "dorvanta-server: --data DIR must name an existing folder\n";
        return 2;
    }
    const QHostAddress address(parser.value(listen));
    if (address.isNull()) {
        err << "dorvanta-server: not an address: " << parser.value(listen) << "\n";
        return 2;
    }
    bool ok = false;
    const uint wanted = parser.value(port).toUInt(&ok);
    if (!ok || wanted > 65535) {
        err << "dorvanta-server: not a port: " << parser.value(port) << "\n";
        return 2;
    }

    const double seconds = parser.value(timeout).toDouble(&ok);
    if (!ok || seconds < 0.1 || seconds > 3600) {
        err << "dorvanta-server: not a timeout in seconds (0.1 to 3600): " << parser.value(timeout) << "\n";
        return 2;
    }

    DataServer server(parser.isSet(data) ? parser.value(data) : QString());
    server.setDemo(demoMode);
    server.setTimeoutMs(static_cast<int>(seconds * 1000));
    QTextStream out(stdout);
    server.log = [&out](const QString& line) { out << line << Qt::endl; };
    const quint16 actual = server.listen(address, static_cast<quint16>(wanted));
    if (actual == 0) {
        err << "dorvanta-server: cannot listen on " << address.toString() << ":" << wanted << "\n";
        return 1;
    }
    const QString host = address.protocol() == QAbstractSocket::IPv6Protocol
                             ? QStringLiteral("[%1]").arg(address.toString())
                             : address.toString();
    out << "Listening on http://" << host << ":" << actual << "/" << Qt::endl;
    if (demoMode)
        out << "Demo mode: the evening and five-minute archives are SYNTHETIC draws made up from the date, "
               "not real results"
            << Qt::endl;
    return app.exec();
}
