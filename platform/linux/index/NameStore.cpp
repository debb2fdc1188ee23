// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/NameStore.h"

#include "platform/linux/index/NameFolding.h"

#include <QFile>
#include <QSet>

#include <algorithm>
#include <tuple>
#include <utility>

namespace skipnest::linuxdesktop {

using platform::FileQuery;
using platform::IndexedFile;

namespace {

// Longer than any path of the kernel; ends the walk in a table from a damaged disk.
constexpr int deepest = 2048;

} // namespace

NameStore NameStore::withTitles(std::vector<Title> titles) const {
    NameStore store = *this;
    store.titles_ = std::make_shared<const std::vector<Title>>(std::move(titles));
    return store;
}

NameStore NameStore::withChanges(NameTable recent, Gone gone) const {
    NameStore store = *this;
    store.recent_ = std::move(recent);
    store.goneCount_ = std::ranges::count(gone, true);
    store.gone_ = std::make_shared<const Gone>(std::move(gone));
    return store;
}

std::int64_t NameStore::size() const {
    const auto titles = titles_ ? std::ssize(*titles_) : 0;
    return std::int64_t{base_.size()} + recent_.size() + titles - goneCount_;
}

std::string_view NameStore::name(Id id) const {
    return id < base_.size() ? base_.name(id) : recent_.name(id - base_.size());
}

bool NameStore::isFolder(Id id) const {
    return id < base_.size() ? base_.isFolder(id) : recent_.isFolder(id - base_.size());
}

NameStore::Id NameStore::parent(Id id) const {
    return id < base_.size() ? base_.parent(id) : recent_.parent(id - base_.size());
}

bool NameStore::isAlive(Id id) const {
    if (!gone_)
        return true;
    for (int depth = 0; id < NameTable::firstRoot && depth < deepest; ++depth) {
        if (isGone(id))
            return false;
        id = parent(id);
    }
    return true;
}

std::string NameStore::path(Id id) const {
    std::vector<std::string_view> parts;
    for (; id < NameTable::firstRoot && parts.size() < deepest; id = parent(id))
        parts.push_back(name(id));
    std::string path(id < NameTable::firstRoot ? "" : base_.root(id - NameTable::firstRoot));
    for (auto part = parts.rbegin(); part != parts.rend(); ++part) {
        if (!path.ends_with('/'))
            path += '/';
        path += *part;
    }
    return path;
}

std::optional<NameStore::Id> NameStore::child(Id folder, std::string_view name) const {
    const std::string folded = foldedName(name);
    std::optional<Id> found;
    const auto look = [&](Id id) {
        if (parent(id) == folder && !isGone(id) && isFolder(id) && this->name(id) == name)
            found = id;
        return !found;
    };
    base_.visitEqual(folded, look);
    if (!found)
        recent_.visitEqual(folded, [&](Id id) { return look(id + base_.size()); });
    return found;
}

std::optional<NameStore::Id> NameStore::find(std::string_view path) const {
    // The longest root that the path lies in.
    std::optional<Id> at;
    std::size_t length = 0;
    for (Id root = 0; root < base_.rootCount(); ++root) {
        const std::string_view start = base_.root(root);
        if (path.starts_with(start) && start.size() > length &&
            (path.size() == start.size() || start.ends_with('/') || path[start.size()] == '/')) {
            at = NameTable::firstRoot + root;
            length = start.size();
        }
    }
    if (!at)
        return std::nullopt;
    path.remove_prefix(length);
    while (at && !path.empty()) {
        const std::size_t slash = std::min(path.find('/'), path.size());
        if (slash > 0)
            at = child(*at, path.substr(0, slash));
        path.remove_prefix(std::min(slash + 1, path.size()));
    }
    return at;
}

struct NameStore::Candidate {
    bool begins = false;
    std::string folded; // as displayed
    IndexedFile file;

    [[nodiscard]] auto rank() const {
        return std::tuple(!begins, file.kind != IndexedFile::Kind::application,
                          std::string_view(folded), QStringView(file.path));
    }
};

// The best items of each source, put in one order.
class NameStore::Gathering {
public:
    Gathering(const NameStore& store, std::string text, std::size_t limit)
        : store_(store), text_(std::move(text)), limit_(limit) {}

    void addTitles(const std::vector<Title>& titles, FileQuery::Contents contents) {
        for (const Title& title : titles) {
            if (contents == FileQuery::Contents::applications &&
                title.item.kind != IndexedFile::Kind::application)
                continue;
            const auto holds = [&](const std::string& name) {
                return name.find(text_) != std::string::npos;
            };
            if (std::ranges::none_of(title.folded, holds))
                continue;
            const auto begins = [&](const std::string& name) { return name.starts_with(text_); };
            found_.push_back(
                {std::ranges::any_of(title.folded, begins), title.folded.front(), title.item});
            paths_.insert(title.item.path);
        }
    }

    // The table is in name order: after `limit` of either kind nothing better can come.
    void addTable(const NameTable& table, Id firstId) {
        std::size_t count = 0;
        table.visitBeginning(text_, [&](Id id) {
            count += add(table, id, firstId, true) ? 1 : 0;
            return count < limit_;
        });
        if (count >= limit_)
            return;
        table.visitContaining(text_, [&](Id id) {
            count += add(table, id, firstId, false) ? 1 : 0;
            return count < limit_;
        });
    }

    [[nodiscard]] std::vector<IndexedFile> best() {
        std::ranges::sort(found_, {}, &Candidate::rank);
        std::vector<IndexedFile> files;
        for (Candidate& candidate : found_) {
            if (files.size() < limit_)
                files.push_back(std::move(candidate.file));
        }
        return files;
    }

private:
    bool add(const NameTable& table, Id place, Id firstId, bool begins) {
        const Id id = firstId + place;
        if (!store_.isAlive(id))
            return false;
        const QString path = QFile::decodeName(store_.path(id).c_str());
        if (paths_.contains(path))
            return false;
        const std::string_view name = table.name(place);
        found_.push_back(
            {begins,
             std::string(table.folded(place)),
             {path, QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())),
              table.isFolder(place) ? IndexedFile::Kind::folder : IndexedFile::Kind::file}});
        return true;
    }

    const NameStore& store_;
    const std::string text_;
    const std::size_t limit_;
    std::vector<Candidate> found_;
    QSet<QString> paths_; // of the titles: the tables know them by their file names
};

std::vector<IndexedFile> NameStore::search(const FileQuery& query) const {
    std::string text = foldedName(query.text);
    // Names have no zero bytes; a text of marks alone folds to nothing.
    if (text.empty() || text.find('\0') != std::string::npos || query.limit <= 0)
        return {};
    Gathering gathering(*this, std::move(text), static_cast<std::size_t>(query.limit));
    if (titles_)
        gathering.addTitles(*titles_, query.contents);
    if (query.contents == FileQuery::Contents::everything) {
        gathering.addTable(base_, 0);
        gathering.addTable(recent_, base_.size());
    }
    return gathering.best();
}

} // namespace skipnest::linuxdesktop
