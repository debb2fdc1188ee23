// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimBookmarks.h"

namespace skipnest::sim {

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::FileKind;
using platform::Result;

namespace {

constexpr QByteArrayView prefix("sim-bookmark:");

Failure lost(const QString& path) {
    return {Failure::Kind::notFound, u"the target of the bookmark of %1 is gone"_s.arg(path)};
}

} // namespace

void SimBookmarks::setTarget(const QString& path, const std::optional<QString>& target) {
    targets_[path] = target;
}

void SimBookmarks::refuseCreation(const QString& path, const Failure& failure) {
    refusals_[path] = failure;
}

QByteArray SimBookmarks::bytesFor(const QString& path) {
    return prefix.toByteArray() + path.toUtf8();
}

Result<QByteArray> SimBookmarks::create(const QString& path) {
    if (const auto refused = refusals_.find(path); refused != refusals_.end())
        return refused->second;
    if (files_.kind(path) == FileKind::none)
        return Failure{Failure::Kind::notFound, u"nothing is at %1"_s.arg(path)};
    return bytesFor(path);
}

Result<QString> SimBookmarks::resolve(const QByteArray& bookmark) {
    if (!bookmark.startsWith(prefix))
        return Failure{Failure::Kind::malformed, u"these bytes are no bookmark"_s};
    const QString path = QString::fromUtf8(bookmark.mid(prefix.size()));
    if (const auto target = targets_.find(path); target != targets_.end()) {
        if (!target->second)
            return lost(path);
        return *target->second;
    }
    if (files_.kind(path) == FileKind::none)
        return lost(path);
    return path;
}

platform::ScopedAccess SimBookmarks::startAccessing(const QString&) {
    ++*held_;
    return platform::ScopedAccess([held = held_] { --*held; });
}

} // namespace skipnest::sim
