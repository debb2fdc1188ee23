// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Bookmarks.h"
#include "platform/Files.h"

#include <map>
#include <memory>
#include <optional>

namespace skipnest::sim {

// Bookmarks that find their target where it was, unless told that it moved or is lost.
class SimBookmarks final : public platform::Bookmarks {
public:
    explicit SimBookmarks(const platform::Files& files) : files_(files) {}

    // Bookmarks of `path` resolve to `target` from now on; nothing: they do not resolve.
    void setTarget(const QString& path, const std::optional<QString>& target);
    void refuseCreation(const QString& path, const platform::Failure& failure);
    // A bookmark of `path`, whether or not anything is there: what an older run has stored.
    [[nodiscard]] static QByteArray bytesFor(const QString& path);
    // How many accesses are held; one that stays above zero has leaked.
    [[nodiscard]] int heldAccesses() const { return *held_; }

    [[nodiscard]] platform::Result<QByteArray> create(const QString& path) override;
    [[nodiscard]] platform::Result<QString> resolve(const QByteArray& bookmark) override;
    [[nodiscard]] platform::ScopedAccess startAccessing(const QString& path) override;

private:
    const platform::Files& files_;
    std::map<QString, std::optional<QString>> targets_;
    std::map<QString, platform::Failure> refusals_;
    std::shared_ptr<int> held_ = std::make_shared<int>(0);
};

} // namespace skipnest::sim
