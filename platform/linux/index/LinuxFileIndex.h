// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Executor.h"
#include "platform/FileIndex.h"
#include "platform/Scheduler.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/index/IndexFolders.h"
#include "platform/linux/index/IndexWorker.h"

#include <memory>

namespace skipnest::linuxdesktop {

// Names of applications, folders and content files below home, the user folders and the drives.
// One thread of its own reads and watches them; searches run on the executor, each on the names as
// they were when it was asked for.
class LinuxFileIndex final : public platform::FileIndex {
public:
    LinuxFileIndex(platform::Scheduler& scheduler, platform::Executor& executor,
                   DesktopEntries& entries, IndexFolders folders);

    // Loads the names of the last time, or begins to read the folders. Before it the index is empty
    // and costs nothing.
    void start();

    void prepare() override { start(); }
    [[nodiscard]] platform::Availability availability() const override { return availability_; }
    [[nodiscard]] State state() const override;
    [[nodiscard]] platform::FileSearch search(const platform::FileQuery& query,
                                              Found found) override;

private:
    void noticed(IndexWorker::Noticed what);

    platform::Scheduler& scheduler_;
    platform::Executor& executor_;
    DesktopEntries& entries_;
    const IndexFolders folders_;
    std::shared_ptr<const NameStore> store_ = std::make_shared<const NameStore>();
    bool isBuilding_ = false;
    platform::Availability availability_;
    platform::Observation entriesChanged_;
    platform::Timer rescan_;
    platform::Timer settling_;
    platform::Timer mountsSettling_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true); // told from the worker's thread
    std::unique_ptr<IndexWorker> worker_;                        // ends first
};

} // namespace skipnest::linuxdesktop
