// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/DesktopClaims.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace skipnest::linuxdesktop {

void DesktopClaims::add(const std::optional<KeySpelling>& key, const QString& action) {
    if (!key)
        return;
    if (key->isSuperTap())
        superTap = true;
    else
        claims.push_back({*key, action});
}

bool cinnamonMenuTakesSuper(const QByteArray& json) {
    const QJsonObject overlay =
        QJsonDocument::fromJson(json).object().value(u"overlay-key").toObject();
    return overlay.value(u"value").toString().contains(u"Super");
}

} // namespace skipnest::linuxdesktop
