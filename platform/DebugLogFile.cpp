// SPDX-License-Identifier: Apache-2.0
#include "platform/DebugLogFile.h"

#include <QDir>

#include <cstdio>
#include <utility>

namespace skipnest::platform {
namespace {

constexpr qint64 rotateAt = 5'000'000;
constexpr QFile::Permissions userOnly = QFile::ReadOwner | QFile::WriteOwner;

} // namespace

QString escapedForLog(const QString& text) {
    const auto isControl = [](QChar c) { return c.category() == QChar::Other_Control; };
    if (std::none_of(text.begin(), text.end(), isControl))
        return text;
    QString escaped;
    for (const QChar c : text) {
        if (c == u'\n')
            escaped += QStringLiteral("\\n");
        else if (c == u'\r')
            escaped += QStringLiteral("\\r");
        else if (c == u'\t')
            escaped += QStringLiteral("\\t");
        else if (isControl(c))
            escaped += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            escaped += c;
    }
    return escaped;
}

DebugLogFile::DebugLogFile(const QString& folder, Scheduler& scheduler, const WallClock& clock)
    : scheduler_(scheduler), clock_(clock), file_(folder + QStringLiteral("/Skipnest-debug.log")) {}

DebugLogFile::~DebugLogFile() {
    *alive_ = false;
    flush();
}

void DebugLogFile::log(const QString& line) {
    pending_.push_back({clock_.nowUtc(), line});
    if (std::exchange(flushPosted_, true))
        return;
    scheduler_.post([this, alive = alive_] {
        if (*alive)
            flush();
    });
}

void DebugLogFile::print(const QString& line) {
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

void DebugLogFile::flush() {
    flushPosted_ = false;
    if (pending_.empty())
        return;
    const QTimeZone zone = clock_.zone();
    QByteArray lines;
    for (const auto& [utc, text] : std::exchange(pending_, {}))
        lines += utc.toTimeZone(zone).toString(u"yyyy-MM-ddTHH:mm:ss.zzz").toLatin1() + ' ' +
                 escapedForLog(text).toUtf8() + '\n';
    if (!file_.isOpen() && !open())
        return;
    if (file_.size() + lines.size() > rotateAt)
        rotate();
    file_.write(lines);
}

bool DebugLogFile::open() {
    const QString folder = file_.fileName().left(file_.fileName().lastIndexOf(u'/'));
    const bool isNewFolder = !QDir(folder).exists();
    if (!QDir().mkpath(folder))
        return false;
    if (isNewFolder)
        QFile::setPermissions(folder, userOnly | QFile::ExeOwner);
    return file_.open(QFile::WriteOnly | QFile::Append | QFile::Unbuffered, userOnly);
}

void DebugLogFile::rotate() {
    const QString name = file_.fileName();
    const QString old = name + QStringLiteral(".old");
    file_.close();
    QFile::remove(old);
    QFile::rename(name, old);
    file_.setFileName(name);
    (void)open();
}

} // namespace skipnest::platform
