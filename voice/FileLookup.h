// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/FileIndex.h"
#include "platform/Ports.h"
#include "platform/Scheduler.h"
#include "voice/JumpTarget.h"

#include <QString>

#include <functional>
#include <vector>

namespace skipnest::voice {

// "~/Documents" for a path in the home folder.
[[nodiscard]] QString shortPath(const QString& path, const QString& home);

// Files and folders by name, for a phrase that leads nowhere else.
class FileLookup {
public:
    using Found = std::function<void(std::vector<JumpTarget>)>;

    // The person waits: what has not been found by then is not there.
    static constexpr platform::Duration patience = std::chrono::milliseconds(20);

    explicit FileLookup(const platform::Ports& ports) : ports_(ports) {}
    FileLookup(const FileLookup&) = delete;
    FileLookup& operator=(const FileLookup&) = delete;

    // Names that contain the phrase, then those that contain one of its words, each once;
    // applications are left out. `found` is told once, never from inside the call, unless another
    // lookup has begun.
    void find(const QString& phrase, Found found);
    void cancel();

private:
    void end();

    platform::Ports ports_;
    std::vector<platform::FileSearch> searches_;
    std::vector<std::vector<platform::IndexedFile>> answers_; // by search
    std::size_t open_ = 0;
    platform::Timer deadline_;
    Found found_;
};

} // namespace skipnest::voice
