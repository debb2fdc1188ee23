// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <thread>

namespace skipnest::tests {

inline QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void put(const QString& path, const QByteArray& text) {
    QDir().mkpath(path.left(path.lastIndexOf(u'/')));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(text);
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

// A `skipnest` that writes down what it was started with, installed below any folder.
class InstalledHome : public testing::Test {
protected:
    platform::AppInfo install(const QString& folder) {
        const QString prefix = place.path() + u'/' + folder;
        put(prefix + QStringLiteral("/bin/skipnest"),
            "#!/bin/sh\nprintf '%s\\n' \"$@\" >" + QFile::encodeName(record) + ".part && mv " +
                QFile::encodeName(record) + ".part " + QFile::encodeName(record) + '\n');
        put(prefix + QStringLiteral("/libexec/skipnest/skipnest-agent"), "");
        platform::AppInfo app;
        app.bundleIdentifier = QStringLiteral("com.skipnest.Skipnest");
        app.bundlePath = prefix + QStringLiteral("/libexec/skipnest/skipnest-agent");
        return app;
    }
    // The arguments of the start that is under way.
    [[nodiscard]] QByteArray started() const {
        for (int i = 0; i < 500 && !QFile::exists(record); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        const QByteArray arguments = contents(record);
        QFile::remove(record);
        return arguments;
    }

    const QTemporaryDir place;
    const QString record = place.path() + QStringLiteral("/record");
    const QString data = place.path() + QStringLiteral("/data");
    const QString config = place.path() + QStringLiteral("/config");
};

} // namespace skipnest::tests
