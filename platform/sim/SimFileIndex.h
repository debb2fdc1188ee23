// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/FileIndex.h"
#include "platform/IconSource.h"
#include "platform/sim/VirtualScheduler.h"

#include <memory>
#include <vector>

namespace skipnest::sim {

// An index that holds what a test put in, and answers as slowly as the test wants.
class SimFileIndex final : public platform::FileIndex {
public:
    explicit SimFileIndex(VirtualScheduler& scheduler) : scheduler_(scheduler) {}

    void add(platform::IndexedFile item) { items_.push_back(std::move(item)); }
    void setDelay(platform::Duration delay) { delay_ = delay; }
    // Texts of all searches so far.
    [[nodiscard]] const QStringList& searches() const { return searches_; }
    // Searches that have neither answered nor been dropped.
    [[nodiscard]] int running() const { return running_; }

    [[nodiscard]] platform::Availability availability() const override { return {}; }
    [[nodiscard]] State state() const override;
    [[nodiscard]] platform::FileSearch search(const platform::FileQuery& query,
                                              Found found) override;

private:
    [[nodiscard]] std::vector<platform::IndexedFile> answer(const platform::FileQuery& query) const;

    VirtualScheduler& scheduler_;
    std::vector<platform::IndexedFile> items_;
    platform::Duration delay_{};
    QStringList searches_;
    int running_ = 0;
};

// No pictures: the screens draw a letter instead.
class SimIcons final : public platform::IconSource {
public:
    [[nodiscard]] bool icon(const QString&, int, QImage&) override { return false; }
};

} // namespace skipnest::sim
