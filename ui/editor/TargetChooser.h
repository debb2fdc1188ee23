// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"
#include "ui/editor/SearchResults.h"
#include "ui/search/TargetSearchService.h"

#include <QObject>
#include <qqmlintegration.h>

#include <cstdint>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// Finds a target by a part of its name, or by its path where a path is typed ("/…", "~/…" or a
// file URL).
class TargetChooser final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the editor")
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    // 0 applications, 1 everything.
    Q_PROPERTY(int scope READ scope WRITE setScope NOTIFY scopeChanged)
    Q_PROPERTY(QAbstractItemModel* results READ results CONSTANT)
    Q_PROPERTY(bool searching READ isSearching NOTIFY stateChanged)
    // Why there are no results, or not all of them; empty while all is well.
    Q_PROPERTY(QString note READ note NOTIFY stateChanged)
    // No application is called so, but something else may be.
    Q_PROPERTY(bool canWiden READ canWiden NOTIFY stateChanged)
public:
    explicit TargetChooser(app::AppDelegate& agent, QObject* parent = nullptr);

    [[nodiscard]] const QString& text() const { return text_; }
    void setText(const QString& text);
    [[nodiscard]] int scope() const { return static_cast<int>(scope_); }
    void setScope(int scope);
    [[nodiscard]] SearchResults* results() { return &results_; }
    [[nodiscard]] bool isSearching() const;
    [[nodiscard]] QString note() const;
    [[nodiscard]] bool canWiden() const;

    // The row, or the first one of an answer that is still on its way: people press Return as soon
    // as they have typed.
    Q_INVOKABLE void choose(int row);
    void reset();
    // Ends the search; the text stays.
    void pause();

Q_SIGNALS:
    void textChanged();
    void scopeChanged();
    void stateChanged();
    void chosen(const QString& path);

private:
    void search();
    void lookAtPath(const QString& path);
    void show(std::vector<FoundTarget> found);
    void serviceChanged();
    [[nodiscard]] FoundTarget found(const QString& path, const QString& name,
                                    model::ShortcutItem::TargetType type) const;

    app::AppDelegate& agent_;
    TargetSearchService service_;
    SearchResults results_;
    QString text_;
    SearchScope scope_ = SearchScope::apps;
    bool isPath_ = false; // the text is a path
    bool isLooking_ = false;
    std::uint64_t look_ = 0;
    bool chooseFirst_ = false;
    platform::Timer again_; // while the index is being built
};

} // namespace skipnest::ui
