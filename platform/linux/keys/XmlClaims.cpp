// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/DesktopClaims.h"

#include <QXmlStreamReader>

#include <map>

namespace skipnest::linuxdesktop {
namespace {

// What a keybind element does: its first action, or that it only begins a chain. Reads to its end.
QString openboxAction(QXmlStreamReader& xml) {
    QString action;
    while (xml.readNextStartElement()) {
        if (xml.name() == u"keybind") {
            action = QStringLiteral("key chain");
            xml.skipCurrentElement();
        } else if (xml.name() == u"action" && action.isEmpty()) {
            action = xml.attributes().value(QLatin1String("name")).toString();
            while (xml.readNextStartElement()) {
                if (xml.name() == u"command" || xml.name() == u"execute")
                    action += QStringLiteral(": ") +
                              xml.readElementText(QXmlStreamReader::SkipChildElements).simplified();
                else
                    xml.skipCurrentElement();
            }
        } else {
            xml.skipCurrentElement();
        }
    }
    return action;
}

using Bindings = std::map<QString, QString>; // combo → action

// "commands" and "xfwm4" each have the trees "default" and "custom".
struct XfceChannel {
    std::map<QString, Bindings> defaults;
    std::map<QString, Bindings> custom;
    std::map<QString, bool> overrides;
};

void readXfceTree(QXmlStreamReader& xml, const QString& program, const QString& tree,
                  XfceChannel& channel) {
    while (xml.readNextStartElement()) {
        const QXmlStreamAttributes attributes = xml.attributes();
        const QString name = attributes.value(QLatin1String("name")).toString();
        const QString value = attributes.value(QLatin1String("value")).toString();
        xml.skipCurrentElement();
        if (name == u"override")
            channel.overrides[program] = value == u"true";
        else
            (tree == u"default" ? channel.defaults : channel.custom)[program][name] = value;
    }
}

XfceChannel readXfce(const QByteArray& bytes) {
    XfceChannel channel;
    QXmlStreamReader xml(bytes);
    if (!xml.readNextStartElement() || xml.name() != u"channel")
        return channel;
    while (xml.readNextStartElement()) {
        const QString program = xml.attributes().value(QLatin1String("name")).toString();
        if (program != u"commands" && program != u"xfwm4") {
            xml.skipCurrentElement();
            continue;
        }
        while (xml.readNextStartElement()) {
            const QString tree = xml.attributes().value(QLatin1String("name")).toString();
            if (tree == u"default" || tree == u"custom")
                readXfceTree(xml, program, tree, channel);
            else
                xml.skipCurrentElement();
        }
    }
    return channel;
}

} // namespace

DesktopClaims openboxClaims(const QByteArray& configuration) {
    DesktopClaims claims;
    QXmlStreamReader xml(configuration);
    if (!xml.readNextStartElement() || xml.name() != u"openbox_config")
        return claims;
    while (xml.readNextStartElement()) {
        if (xml.name() != u"keyboard") {
            xml.skipCurrentElement();
            continue;
        }
        while (xml.readNextStartElement()) {
            if (xml.name() != u"keybind") {
                xml.skipCurrentElement();
                continue;
            }
            const QString keys = xml.attributes().value(QLatin1String("key")).toString();
            const QString action = openboxAction(xml);
            for (const QString& key : keys.split(u' ', Qt::SkipEmptyParts))
                claims.add(openboxSpelling(key), action);
        }
    }
    return claims;
}

DesktopClaims xfceClaims(const QByteArray& system, const QByteArray& person) {
    const XfceChannel below = readXfce(system);
    XfceChannel above = readXfce(person);
    DesktopClaims claims;
    for (const char16_t* name : {u"commands", u"xfwm4"}) {
        const QString program = QString::fromUtf16(name);
        Bindings bindings;
        const auto lay = [&bindings, &program](const std::map<QString, Bindings>& trees) {
            if (const auto tree = trees.find(program); tree != trees.end()) {
                for (const auto& [combo, action] : tree->second)
                    bindings[combo] = action;
            }
        };
        if (!above.overrides[program]) {
            lay(below.defaults);
            lay(below.custom);
            lay(above.defaults);
        }
        lay(above.custom);
        for (const auto& [combo, action] : bindings) {
            // An entry without an action takes the default away.
            if (!action.isEmpty())
                claims.add(gtkSpelling(combo), action);
        }
    }
    return claims;
}

} // namespace skipnest::linuxdesktop
