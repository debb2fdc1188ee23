// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Observers.h"
#include "platform/Owned.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

namespace skipnest::platform {

// A question to the index of names. The text is an argument, never part of an expression.
struct FileQuery {
    enum class Contents {
        applications,
        everything, // applications, folders and content files
    };
    QString text; // not empty; matched as a substring, case and diacritics ignored
    Contents contents = Contents::everything;
    int limit = 24; // best matches wanted
};

struct IndexedFile {
    enum class Kind { application, folder, file };
    QString path;        // absolute
    QString displayName; // localised, as people see it; may end in ".app"
    Kind kind = Kind::file;

    bool operator==(const IndexedFile&) const = default;
};

using FileSearch = Owned<struct FileSearchTag>;

// Names of what the person can open, without asking the disk.
class FileIndex {
public:
    using Found = std::function<void(std::vector<IndexedFile>)>;

    struct State {
        std::int64_t items = 0;
        bool isBuilding = false; // answers may be incomplete
    };

    virtual ~FileIndex() = default;

    // Limited where the machine cannot tell of changes and folders are read again instead.
    [[nodiscard]] virtual Availability availability() const = 0;
    [[nodiscard]] virtual State state() const = 0;

    // Called once by a program that will search: names are loaded or gathered from then on. Costs
    // the caller nothing.
    virtual void prepare() {}

    // The best `limit` items whose display name contains the text: names that begin with it first,
    // among equals applications first, then by name. `found` runs once on the main thread, never
    // from inside the call; dropping the search drops it.
    [[nodiscard]] virtual FileSearch search(const FileQuery& query, Found found) = 0;
};

} // namespace skipnest::platform
