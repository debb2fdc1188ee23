// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QUrl>

#include <cstdint>
#include <functional>
#include <optional>

namespace skipnest::voice {

// A place a person can name and be taken to.
struct JumpTarget {
    enum class Kind : std::uint8_t { app, file, folder, tab, window };

    QString title = {};    // what people say
    QString subtitle = {}; // shown beside it and searched too: "Folder", a path, an application
    Kind kind = Kind::app;
    QString owner = {}; // the application of a tab or window, else empty
    std::optional<QUrl> url = {};
    bool hot = false;     // one of the configured shortcuts
    bool current = false; // what is in front right now
    std::function<void()> commit = {};
};

} // namespace skipnest::voice
