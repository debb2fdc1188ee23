// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"
#include "platform/FileIndex.h"
#include "platform/Scheduler.h"

#include <QObject>
#include <QUrl>

#include <vector>

namespace skipnest::ui {

enum class SearchScope { apps, everything };

struct SearchResult {
    QString id; // the absolute path
    QString name;
    QUrl url;
    model::ShortcutItem::TargetType kind = model::ShortcutItem::TargetType::file;

    bool operator==(const SearchResult&) const = default;
};

// Finds targets by name while the person types: one query 0.18 s after the last keystroke, the best
// 24 results.
class TargetSearchService final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isSearching READ isSearching NOTIFY isSearchingChanged)
public:
    TargetSearchService(platform::FileIndex& index, platform::Scheduler& scheduler,
                        QObject* parent = nullptr);

    [[nodiscard]] const std::vector<SearchResult>& results() const { return results_; }
    [[nodiscard]] bool isSearching() const { return isSearching_; }

    void search(const QString& text, SearchScope scope);
    void cancel();

Q_SIGNALS:
    void resultsChanged();
    void isSearchingChanged();

private:
    void run();
    void publish(std::vector<SearchResult> results);
    void setSearching(bool isSearching);

    platform::FileIndex& index_;
    platform::Scheduler& scheduler_;
    std::vector<SearchResult> results_;
    bool isSearching_ = false;
    platform::FileSearch query_;
    platform::Timer debounce_;
    SearchScope currentScope_ = SearchScope::apps;
    QString currentText_;
};

} // namespace skipnest::ui
