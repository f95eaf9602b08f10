// dorvanta-server, started for real on 127.0.0.1 and asked over HTTP.
#include "HttpGet.h"
#include "server/ArchivioFiltro.h"
#include "ServerProcess.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using dv::test::httpGet;
using dv::test::ServerProcess;

namespace {

const QString Sample = QStringLiteral(DV_SOURCE_DIR "/server/sample-data");

void scrivi(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

QByteArray leggi(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

TEST(DataServer, ServesTheFilesAtTheirPathsLogsEachRequestAndTheFiveMinuteArchiveFromADate) {
    ServerProcess server(Sample);
    ASSERT_TRUE(server.running());
    // The update, language and matrix tests fetch the other sample files through it.
    for (const char* path : {"/public/10elotto/ver.asp", "/public/10elotto/lingue/english.txt"}) {
        const auto r = httpGet(server.url(path));
        EXPECT_EQ(r.status, 200) << path;
        EXPECT_EQ(r.body, leggi(Sample + QString::fromLatin1(path))) << path;
    }
    EXPECT_EQ(httpGet(server.url("/public/10elotto/none.asp")).status, 404);
    EXPECT_EQ(httpGet(server.url("/public/10elotto/lingue")).status, 404); // a folder is no file
    const QStringList log = server.logLines();
    ASSERT_EQ(log.size(), 4);
    EXPECT_TRUE(log.at(0).contains(QStringLiteral("GET /public/10elotto/ver.asp -> 200")));
    EXPECT_TRUE(log.at(2).contains(QStringLiteral("-> 404")));

    // The five-minute archive from a date: what the filter gives of the whole file, streamed.
    const QByteArray intero = leggi(Sample + QStringLiteral("/public/10elotto5min/archivioro2.asp"));
    const auto all = httpGet(server.url("/public/10elotto5min/archivioro2.asp?dal=19000101"));
    ASSERT_EQ(all.status, 200);
    EXPECT_EQ(all.body, intero);
    const auto some = httpGet(server.url("/public/10elotto5min/archivioro2.asp?dal=20260104"));
    ASSERT_EQ(some.status, 200);
    EXPECT_EQ(some.body.toStdString(), dv::server::FiltraArchivioDal(intero.toStdString(), 20260104));
    EXPECT_LT(some.body.size(), intero.size());
    for (const char* bad : {"", "?dal=", "?dal=2026014", "?dal=202601040", "?dal=20261399", "?dal=20260230",
                            "?dal=2026-01-04", "?dal=20260104&dal=20260105", "?from=20260104"})
        EXPECT_EQ(httpGet(server.url(std::string("/public/10elotto5min/archivioro2.asp") + bad)).status, 400)
            << bad;
}

// Matrices by name from their folder only; nothing outside the data folder, through any spelling
// of a path or through a link, and no hidden name.
TEST(DataServer, MatrixDownloadByNameAndNeverAFileOutsideTheDataFolder) {
    QTemporaryDir outer;
    scrivi(outer.filePath(QStringLiteral("secret.txt")), "SECRET");
    const QString data = outer.filePath(QStringLiteral("data"));
    scrivi(data + QStringLiteral("/public/10elotto/matrici/M10_5.DAT"), QByteArray("\x00\x01\x02matrix", 9));
    scrivi(data + QStringLiteral("/public/10elotto/ver.asp"), "1.0.0");
    scrivi(data + QStringLiteral("/public/.hidden"), "SECRET");
    scrivi(data + QStringLiteral("/public/10elotto/matrici/.hidden"), "SECRET");
    ASSERT_TRUE(
        QFile::link(outer.filePath(QStringLiteral("secret.txt")), data + QStringLiteral("/public/link.txt")));
    ServerProcess server(data);
    ASSERT_TRUE(server.running());
    const std::string matrici = "/public/10elotto/matrici/download.aspx";
    const auto r = httpGet(server.url(matrici + "?file=M10_5.DAT"));
    EXPECT_EQ(r.status, 200);
    EXPECT_EQ(r.body, QByteArray("\x00\x01\x02matrix", 9));
    EXPECT_EQ(httpGet(server.url(matrici + "?file=NONE.DAT")).status, 404);
    for (const char* bad :
         {"", "?file=", "?file=..%2Fver.asp", "?file=../ver.asp", "?file=%2Fetc%2Fpasswd", "?name=x"})
        EXPECT_EQ(httpGet(server.url(matrici + bad)).status, 400) << bad;

    EXPECT_EQ(httpGet(server.url("/public/link.txt")).status, 404);
    for (const std::string& path : std::vector<std::string>{
             "/../secret.txt", "/public/../../secret.txt", "/public/%2e%2e/%2e%2e/secret.txt",
             "/public/..%2f..%2fsecret.txt", "//secret.txt", matrici + "?file=..%2F..%2F..%2Fsecret.txt",
             "/public/.hidden", "/public/%2ehidden", matrici + "?file=.hidden"}) {
        const QByteArray answer = dv::test::rawRequest(
            server.port(), QByteArray::fromStdString(
                               "GET " + path + " HTTP/1.1\r\nHost: 127.0.0.1\r\nConnection: close\r\n\r\n"));
        EXPECT_FALSE(answer.isEmpty()) << path;
        EXPECT_FALSE(answer.contains("SECRET")) << path;
        EXPECT_FALSE(answer.startsWith("HTTP/1.1 200")) << path;
    }
}

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
