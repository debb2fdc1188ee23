// SPDX-License-Identifier: Apache-2.0
#include "ui/search/TargetSearchService.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace skipnest::ui {

using model::ShortcutItem;
using platform::FileQuery;
using platform::IndexedFile;

namespace {

using namespace std::chrono_literals;

constexpr platform::Duration debounceTime = 180ms;
constexpr std::size_t shown = 24;
// More than are shown: some are dropped, and the best are chosen by what is shown of them.
constexpr int asked = 64;

// A small application inside a library folder is part of something else.
bool isBuried(const IndexedFile& file) {
    return file.kind == IndexedFile::Kind::application &&
           file.path.contains(QStringLiteral("/Library/")) &&
           !file.path.startsWith(QStringLiteral("/Applications"));
}

ShortcutItem::TargetType kindOf(const IndexedFile& file) {
    switch (file.kind) {
    case IndexedFile::Kind::application:
        return ShortcutItem::TargetType::application;
    case IndexedFile::Kind::folder:
        // A bundle that is no application is opened, not looked into.
        return file.path.endsWith(QStringLiteral(".app"), Qt::CaseInsensitive)
                   ? ShortcutItem::TargetType::file
                   : ShortcutItem::TargetType::folder;
    case IndexedFile::Kind::file:
        break;
    }
    return ShortcutItem::TargetType::file;
}

std::vector<SearchResult> ranked(const std::vector<IndexedFile>& files, const QString& text) {
    std::vector<SearchResult> results;
    for (const IndexedFile& file : files) {
        if (file.path.isEmpty() || file.displayName.isEmpty() || isBuried(file))
            continue;
        results.push_back({file.path, QString(file.displayName).remove(QStringLiteral(".app")),
                           QUrl::fromLocalFile(file.path), kindOf(file)});
    }
    // Stable: the index has put equals in the order of their names.
    std::ranges::stable_sort(results, {}, [lower = text.toLower()](const SearchResult& result) {
        return std::tuple(!result.name.toLower().startsWith(lower),
                          result.kind != ShortcutItem::TargetType::application);
    });
    if (results.size() > shown)
        results.resize(shown);
    return results;
}

} // namespace

TargetSearchService::TargetSearchService(platform::FileIndex& index, platform::Scheduler& scheduler,
                                         QObject* parent)
    : QObject(parent), index_(index), scheduler_(scheduler) {}

void TargetSearchService::search(const QString& text, SearchScope scope) {
    // An answer to what is no longer in the field must not arrive either.
    debounce_.reset();
    query_.reset();
    currentText_ = text;
    currentScope_ = scope;
    if (text.isEmpty()) {
        publish({});
        setSearching(false);
        return;
    }
    setSearching(true);
    debounce_ = scheduler_.after(debounceTime, "target search", [this] { run(); });
}

void TargetSearchService::cancel() {
    debounce_.reset();
    query_.reset();
    setSearching(false);
}

void TargetSearchService::run() {
    const FileQuery query{currentText_,
                          currentScope_ == SearchScope::apps ? FileQuery::Contents::applications
                                                             : FileQuery::Contents::everything,
                          asked};
    query_ = index_.search(query, [this](std::vector<IndexedFile> files) {
        query_.reset();
        publish(ranked(files, currentText_));
        setSearching(false);
    });
}

void TargetSearchService::publish(std::vector<SearchResult> results) {
    if (results == results_)
        return;
    results_ = std::move(results);
    Q_EMIT resultsChanged();
}

void TargetSearchService::setSearching(bool isSearching) {
    if (std::exchange(isSearching_, isSearching) != isSearching)
        Q_EMIT isSearchingChanged();
}

} // namespace skipnest::ui
