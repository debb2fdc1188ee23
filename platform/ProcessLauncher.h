// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"

#include <QString>
#include <QStringList>

namespace skipnest::platform {

// Starts a program that goes on without us. Arguments are passed as they are; no shell reads them.
class ProcessLauncher {
public:
    virtual ~ProcessLauncher() = default;
    virtual Outcome launch(const QString& program, const QStringList& arguments) = 0;
};

} // namespace skipnest::platform
