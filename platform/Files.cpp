// SPDX-License-Identifier: Apache-2.0
#include "platform/Files.h"

namespace skipnest::platform {

Outcome writeDurably(Files& files, const QString& link, const QByteArray& bytes) {
    const QString path = files.followLinks(link);
    const QString temporary = path + QStringLiteral(".new");
    const auto giveUp = [&](const Outcome& why) {
        (void)files.remove(temporary);
        return why;
    };
    if (const Outcome written = files.write(temporary, bytes); !written)
        return giveUp(written);
    if (const Outcome flushed = files.flush(temporary); !flushed)
        return giveUp(flushed);
    if (const Outcome renamed = files.rename(temporary, path); !renamed)
        return giveUp(renamed);
    return files.flushFolder(path.left(path.lastIndexOf(u'/')));
}

} // namespace skipnest::platform
