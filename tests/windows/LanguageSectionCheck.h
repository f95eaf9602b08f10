// A check for window tests: every key that a language file's section for a window names is the
// window itself or one of its controls (an element of a control array by its "index").
//     for (const char* f : {"italiano.lng", "english.lng"})
//         dv::test::controllaSezione(window, QStringLiteral(DV_SOURCE_DIR "/languages/") + f);
#pragma once

#include "platform/ApplyLanguage.h"

#include <QFile>
#include <QString>
#include <QWidget>

#include <gtest/gtest.h>

namespace dv::test {

// Every key of the window's section names the window or one of its controls.
inline void controllaSezione(QWidget& form, const QString& lngFile) {
    QFile f(lngFile);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QString section = QLatin1Char('[') + form.objectName() + QLatin1Char(']');
    bool inside = false;
    int keys = 0;
    for (const QByteArray& raw : f.readAll().split('\n')) {
        const QString line = QString::fromLatin1(raw).trimmed();
        if (line.startsWith(QLatin1Char('['))) {
            inside = line == section;
            continue;
        }
        if (!inside || line.isEmpty() || line.startsWith(QLatin1Char(';'))) continue;
        QString name = line.left(line.indexOf(QLatin1Char('.')));
        int index = -1;
        if (const int p = name.indexOf(QLatin1Char('(')); p > 0) {
            index = name.mid(p + 1, name.indexOf(QLatin1Char(')')) - p - 1).toInt();
            name = name.left(p);
        }
        ++keys;
        if (name == form.objectName()) continue;
        const QObject* found = index >= 0 ? dv::elementoArray<QObject>(form, name, index) : form.findChild<QObject*>(name);
        EXPECT_NE(found, nullptr) << lngFile.toStdString() << ": " << line.toStdString();
    }
    EXPECT_GT(keys, 0) << lngFile.toStdString() << " has no section " << section.toStdString();
}


} // namespace dv::test
