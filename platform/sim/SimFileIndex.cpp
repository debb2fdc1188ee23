// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimFileIndex.h"

#include <algorithm>
#include <tuple>

namespace skipnest::sim {

using platform::FileQuery;
using platform::IndexedFile;

namespace {

// Without case and diacritics, as the system's index compares.
QString folded(const QString& text) {
    QString plain;
    for (const QChar c : text.normalized(QString::NormalizationForm_D))
        if (!c.isMark())
            plain += c;
    return plain.toCaseFolded().replace(QChar(u'\u00DF'), QStringLiteral("ss"));
}

} // namespace

platform::FileIndex::State SimFileIndex::state() const {
    return {static_cast<std::int64_t>(items_.size()), false};
}

std::vector<IndexedFile> SimFileIndex::answer(const FileQuery& query) const {
    const QString text = folded(query.text);
    std::vector<IndexedFile> found;
    std::ranges::copy_if(items_, std::back_inserter(found), [&](const IndexedFile& item) {
        return folded(item.displayName).contains(text) &&
               (query.contents == FileQuery::Contents::everything ||
                item.kind == IndexedFile::Kind::application);
    });
    const auto rank = [&text](const IndexedFile& item) {
        const QString name = folded(item.displayName);
        return std::tuple(!name.startsWith(text), item.kind != IndexedFile::Kind::application,
                          name);
    };
    std::ranges::stable_sort(found, {}, rank);
    if (std::ssize(found) > query.limit)
        found.resize(static_cast<std::size_t>(query.limit));
    return found;
}

platform::FileSearch SimFileIndex::search(const FileQuery& query, Found found) {
    searches_.append(query.text);
    ++running_;
    // Both the timer and the count go with the search.
    auto running = std::make_shared<platform::Owned<struct RunningTag>>([this] { --running_; });
    auto timer = std::make_shared<platform::Timer>(scheduler_.after(
        delay_, "simulated file search", [this, query, found = std::move(found), running] {
            running->reset();
            found(answer(query));
        }));
    return platform::FileSearch([timer, running] {
        timer->reset();
        running->reset();
    });
}

} // namespace skipnest::sim
