// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/LinuxFileIndex.h"

#include <atomic>
#include <utility>

namespace skipnest::linuxdesktop {

using platform::FileQuery;
using platform::FileSearch;
using platform::IndexedFile;

namespace {

using namespace std::chrono_literals;

// Programs write several names in a row. Long enough to take them together, and short enough that
// a new file is found within a second.
constexpr platform::Duration settleTime = 300ms;
// A drive that is plugged in brings several mounts, and takes a moment to answer.
constexpr platform::Duration mountSettleTime = 2s;

} // namespace

LinuxFileIndex::LinuxFileIndex(platform::Scheduler& scheduler, platform::Executor& executor,
                               DesktopEntries& entries, IndexFolders folders)
    : scheduler_(scheduler), executor_(executor), entries_(entries), folders_(std::move(folders)) {}

void LinuxFileIndex::start() {
    if (worker_)
        return;
    isBuilding_ = true;
    // `alive` is read on the main thread only, where it ends.
    const auto onMainThread = [&scheduler = scheduler_, alive = std::weak_ptr(alive_)](auto task) {
        scheduler.post([alive, task = std::move(task)] {
            if (!alive.expired())
                task();
        });
    };
    worker_ = std::make_unique<IndexWorker>(
        folders_, IndexWorker::Sink{[this, onMainThread](IndexWorker::Report report) {
                                        onMainThread([this, report = std::move(report)] {
                                            store_ =
                                                std::make_shared<const NameStore>(report.store);
                                            isBuilding_ = report.isBuilding;
                                            availability_ = report.availability;
                                        });
                                    },
                                    [this, onMainThread](IndexWorker::Noticed what) {
                                        onMainThread([this, what] { noticed(what); });
                                    }});
    entriesChanged_ =
        entries_.observeChanges([this] { worker_->ask(IndexWorker::Request::applications); });
    rescan_ = scheduler_.every(folders_.rescanPeriod, "file names are read again",
                               [this] { worker_->ask(IndexWorker::Request::scan); });
}

void LinuxFileIndex::noticed(IndexWorker::Noticed what) {
    switch (what) {
    case IndexWorker::Noticed::folders:
        settling_ = scheduler_.after(settleTime, "folders changed", [this] {
            worker_->ask(IndexWorker::Request::changedFolders);
        });
        break;
    case IndexWorker::Noticed::mounts:
        mountsSettling_ = scheduler_.after(mountSettleTime, "mounts changed",
                                           [this] { worker_->ask(IndexWorker::Request::mounts); });
        break;
    }
}

platform::FileIndex::State LinuxFileIndex::state() const {
    return {store_->size(), isBuilding_};
}

FileSearch LinuxFileIndex::search(const FileQuery& query, Found found) {
    struct Running {
        std::atomic<bool> isDropped = false;
        Found found; // of the main thread
        std::vector<IndexedFile> files;
    };
    const auto running = std::make_shared<Running>();
    running->found = std::move(found);
    executor_.background(
        [running, query, store = store_] {
            if (!running->isDropped)
                running->files = store->search(query);
        },
        [running] {
            if (const Found told = std::exchange(running->found, nullptr))
                told(std::move(running->files));
        });
    return FileSearch([running] {
        running->isDropped = true;
        running->found = nullptr;
    });
}

} // namespace skipnest::linuxdesktop
