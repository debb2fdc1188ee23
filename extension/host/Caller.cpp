// SPDX-License-Identifier: Apache-2.0
#include "extension/host/Caller.h"

#include "platform/BrowserExtension.h"

#include <QStringBuilder>

namespace skipnest::browserhost {

bool isOurExtension(const QStringList& arguments) {
    const QString first = arguments.value(0);
    if (first.contains(u"://"))
        return first == u"chrome-extension://" % platform::chromiumExtensionId % u'/';
    return first.startsWith(u'/') && arguments.value(1) == platform::firefoxExtensionId;
}

} // namespace skipnest::browserhost
