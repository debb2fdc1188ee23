// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"
#include "platform/Bookmarks.h"
#include "platform/Diagnostics.h"
#include "platform/WallClock.h"
#include "platform/Workspace.h"

#include <QByteArray>
#include <QStringList>

#include <ostream>

// So that a failed comparison prints text and not bytes.
// NOLINTNEXTLINE(readability-identifier-naming): the name GoogleTest looks for.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace skipnest::model::test {

// Two shortcuts and every optional key, with keys of a newer version at every level.
[[nodiscard]] QByteArray fullDocument();
// The four required keys.
[[nodiscard]] QByteArray smallestDocument();

struct GatheredLines final : platform::Diagnostics {
    QStringList logged;
    QStringList printed;
    void log(const QString& line) override { logged << line; }
    void print(const QString& line) override { printed << line; }
};

struct SetClock final : platform::WallClock {
    QDateTime now{QDate(2026, 7, 24), QTime(9, 30, 15, 250), Qt::UTC};
    QTimeZone local{QTimeZone::utc()};
    [[nodiscard]] QDateTime nowUtc() const override { return now; }
    [[nodiscard]] QTimeZone zone() const override { return local; }
};

struct NamedBookmarks final : platform::Bookmarks {
    [[nodiscard]] platform::Result<QByteArray> create(const QString& path) override {
        if (path.contains(u"locked"))
            return platform::Failure{platform::Failure::Kind::refused, path};
        return "bookmark of " + path.toUtf8();
    }
    [[nodiscard]] platform::Result<QString> resolve(const QByteArray&) override {
        return platform::Failure{platform::Failure::Kind::malformed, {}};
    }
    [[nodiscard]] platform::ScopedAccess startAccessing(const QString&) override { return {}; }
};

// Judges paths as macOS does, and calls every application by its file name with a star.
struct PathWorkspace final : platform::Workspace {
    [[nodiscard]] platform::Availability availability() const override { return {}; }
    [[nodiscard]] bool isApplication(const QString& path) const override {
        return path.endsWith(u".app");
    }
    [[nodiscard]] QString displayName(const QString& path) const override {
        return path.contains(u"nameless") ? QString()
                                          : path.mid(path.lastIndexOf(u'/') + 1).chopped(4) + u'*';
    }
    [[nodiscard]] QString bundleIdentifier(const QString&) const override { return {}; }
    [[nodiscard]] std::optional<QString> defaultApplication(const QString&) const override {
        return std::nullopt;
    }
    [[nodiscard]] std::vector<platform::RunningApplication> runningApplications() const override {
        return {};
    }
    [[nodiscard]] std::optional<platform::RunningApplication>
    frontmostApplication() const override {
        return std::nullopt;
    }
    void openApplication(const QString&, OpenCompletion) override {}
    void openFile(const QString&, OpenCompletion) override {}
    void openUrl(const QUrl&, OpenCompletion) override {}
    void setNextActivationToken(const QString&) override {}
    [[nodiscard]] platform::Observation
    observeActivations(std::function<void(const platform::RunningApplication&)>) override {
        return {};
    }
};

[[nodiscard]] platform::AppInfo appInfo();

} // namespace skipnest::model::test
