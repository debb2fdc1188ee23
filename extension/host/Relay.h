// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/FramedMessages.h"
#include "platform/Scheduler.h"
#include "platform/linux/FileDescriptor.h"

#include <QByteArray>
#include <QString>

namespace skipnest::browserhost {

// Carries messages between the browser's pipes and the agent's tabs socket, whole ones only, so
// that either side can go and come back. It looks into none of them. While no agent listens, what
// the browser says is dropped and the agent is looked for again after growing pauses; while one
// side does not read, nothing is read from the other.
class Relay {
public:
    enum class End { browserClosed, browserBroken };

    // The descriptors stay the caller's. They are made non-blocking.
    Relay(int input, int output, QString socketPath, const platform::Scheduler& clock);

    // Until the browser goes, or sends what is no message.
    [[nodiscard]] End run();

private:
    void connectToAgent();
    void loseAgent();
    [[nodiscard]] int untilNextAttempt() const;
    // False where the browser is gone.
    [[nodiscard]] bool readBrowser();
    [[nodiscard]] bool writeBrowser();
    void readAgent();
    void writeAgent();

    const int input_;
    const int output_;
    const QString socketPath_;
    const platform::Scheduler& clock_;
    linuxdesktop::FileDescriptor agent_;
    platform::MessageReader fromBrowser_;
    platform::MessageReader fromAgent_;
    QByteArray toBrowser_;
    QByteArray toAgent_;
    platform::Duration pause_;
    platform::Instant nextAttempt_;
};

} // namespace skipnest::browserhost
