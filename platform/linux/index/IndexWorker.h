// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/index/FolderScan.h"
#include "platform/linux/index/IndexFolders.h"
#include "platform/linux/index/IndexWatch.h"
#include "platform/linux/index/NameStore.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace skipnest::linuxdesktop {

// The thread that reads folders: at idle disk priority, asleep while nothing changes. It owns no
// timer: it tells that something has changed, and is told when to look.
class IndexWorker {
public:
    // What it knows at a moment.
    struct Report {
        NameStore store;
        bool isBuilding = false;
        platform::Availability availability;
    };
    enum class Noticed { folders, mounts };
    // `mounts` scans where other drives are there than before.
    enum class Request : unsigned { applications = 1, changedFolders = 2, mounts = 4, scan = 8 };

    // Both are called on its thread.
    struct Sink {
        std::function<void(Report)> report;
        // `folders` once, and again after the request that answers it; `mounts` at each change.
        std::function<void(Noticed)> noticed;
    };

    IndexWorker(IndexFolders folders, Sink sink);
    // Waits until the thread has ended: the folder or table at hand is finished.
    ~IndexWorker();
    IndexWorker(const IndexWorker&) = delete;
    IndexWorker& operator=(const IndexWorker&) = delete;

    void ask(Request request);

private:
    struct Scan;

    void run();
    void loadCache();
    void watchKnownFolders();
    void lookAtMounts();
    void beginScan();
    void goOnScanning();
    void finishScan();
    void rereadChanged();
    void readApplications();
    void applyTitles();
    void waitForWork();
    void takeChanges();
    void report();
    [[nodiscard]] QStringList roots() const;
    [[nodiscard]] std::unique_ptr<FolderReader> readerFor(const QStringList& roots) const;
    [[nodiscard]] platform::Availability availability() const;

    const IndexFolders folders_;
    const Sink sink_;
    FileDescriptor wakeUp_;
    FileDescriptor mounts_;
    std::atomic<unsigned> requests_ = 0;
    std::atomic<bool> isStopping_ = false;

    // The thread's own.
    IndexWatch watch_;
    MountedFolders mounted_;
    std::unique_ptr<FolderReader> reader_;
    std::unique_ptr<Scan> scan_;
    NameStore store_;
    std::vector<Title> applications_;
    IndexWatch::Changes changed_;
    IndexWatch::Changes changedInScan_; // what the table that is being read may not know
    bool isComplete_ = false; // the store is more than what the first scan has read so far
    bool isCut_ = false;      // there were more names than fit
    bool isNoticeSent_ = false;
    std::string saveFailure_;

    std::thread thread_;
};

} // namespace skipnest::linuxdesktop
