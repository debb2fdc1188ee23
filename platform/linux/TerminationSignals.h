// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace skipnest::linuxdesktop {

// SIGTERM, SIGINT and SIGHUP as an orderly end: the handler only writes to a pipe, the rest happens
// in the event loop. One object a process.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> terminate);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    int pipe_[2] = {-1, -1};
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace skipnest::linuxdesktop
