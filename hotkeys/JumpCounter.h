// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace skipnest::hotkeys {

// Where jumps made by a shortcut are counted. The statistics live above this folder.
class JumpCounter {
public:
    virtual ~JumpCounter() = default;
    virtual void countKeyboardJump(const QString& name) = 0;
    virtual void countHide() = 0;
};

} // namespace skipnest::hotkeys
