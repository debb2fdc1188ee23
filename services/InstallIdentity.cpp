// SPDX-License-Identifier: Apache-2.0
#include "services/InstallIdentity.h"

#include <QUuid>

namespace skipnest::services {

QString InstallIdentity::identifier() const {
    const QString key = QStringLiteral("sk.install.id");
    const QString known = defaults_.value(key).toString();
    if (!QUuid::fromString(known).isNull())
        return known;
    const QString made = QUuid::createUuid().toString(QUuid::WithoutBraces);
    // Unsaved it holds for this run; the next one counts as another installation.
    (void)defaults_.setValue(key, made);
    return made;
}

platform::FormFields InstallIdentity::commonFields() const {
    return {{QStringLiteral("v"), version_},
            {QStringLiteral("b"), build_},
            {QStringLiteral("e"), QString::fromLatin1(edition)},
            {QStringLiteral("id"), identifier()}};
}

} // namespace skipnest::services
