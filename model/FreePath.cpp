// SPDX-License-Identifier: Apache-2.0
#include "model/FreePath.h"

namespace skipnest::model {

QString freePathBeside(const platform::Files& files, const QString& path, const QString& suffix,
                       const QDateTime& local) {
    const QString wanted =
        path + u'.' + suffix + u'-' + local.toString(QStringLiteral("yyyyMMdd'T'HHmmss"));
    QString free = wanted;
    for (int copy = 2; files.kind(free) != platform::FileKind::none; ++copy)
        free = wanted + u'-' + QString::number(copy);
    return free;
}

} // namespace skipnest::model
