// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"

#include <QObject>

#include <cstdint>
#include <unordered_set>
#include <vector>

namespace skipnest::platform {
class Bookmarks;
class Executor;
class Files;
} // namespace skipnest::platform

namespace skipnest::ui {

// Which targets are gone: nothing at their path, and no bookmark that finds them elsewhere. The
// disk is asked off the main thread, because a target may lie on a server that does not answer.
class MissingTargets final : public QObject {
    Q_OBJECT
public:
    MissingTargets(platform::Executor& executor, const platform::Files& files,
                   platform::Bookmarks& bookmarks, QObject* parent = nullptr);

    // changed() follows where the answer differs from what is known. A newer question drops the
    // answer to an older one.
    void check(const std::vector<model::ShortcutItem>& items);
    [[nodiscard]] bool contains(const model::RecordId& id) const { return missing_.contains(id); }

Q_SIGNALS:
    void changed();

private:
    void take(const std::vector<model::ShortcutItem>& absent);

    platform::Executor& executor_;
    const platform::Files& files_;
    platform::Bookmarks& bookmarks_;
    std::unordered_set<model::RecordId> missing_;
    std::uint64_t run_ = 0;
};

// A single target, asked at once: for one that the person is looking at.
[[nodiscard]] bool isMissing(const model::ShortcutItem& item, const platform::Files& files,
                             platform::Bookmarks& bookmarks);

} // namespace skipnest::ui
