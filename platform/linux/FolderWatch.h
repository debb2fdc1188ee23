// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace skipnest::linuxdesktop {

// Tells when something below a set of folders is added, changed or removed. A folder that does not
// exist yet is noticed when it appears. Costs nothing while nothing changes: no thread, no timer.
class FolderWatch {
public:
    // `changed` is called on this thread once per batch of events.
    explicit FolderWatch(std::function<void()> changed);
    ~FolderWatch();
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    // Replaces what is watched. Call again after `changed`: new subfolders are only then seen.
    void watch(const QStringList& folders);

private:
    void watchTree(const QString& folder);
    void awaitFolder(const QString& folder);
    void readEvents();

    std::function<void()> changed_;
    int descriptor_ = -1;
    // The name that is awaited in a parent of a missing folder; empty: everything counts.
    QHash<int, QByteArray> awaited_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace skipnest::linuxdesktop
