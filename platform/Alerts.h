// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace skipnest::platform {

struct Alert {
    QString message;
    QString informativeText;
    QStringList buttons; // at least one; the first is the default

    bool operator==(const Alert&) const = default;
};

// A warning the person has to answer. Never blocks: the answer arrives later on the main thread, as
// the index of the button; closing the window answers the last one. A second alert equal to one
// still open only brings that one to the front, and its completion is called with that answer.
class Alerts {
public:
    virtual ~Alerts() = default;
    virtual void show(const Alert& alert, std::function<void(int)> answered) = 0;
};

} // namespace skipnest::platform
