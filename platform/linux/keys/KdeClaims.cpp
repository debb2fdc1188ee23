// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/DesktopClaims.h"

#include <optional>

namespace skipnest::linuxdesktop {
namespace {

// One step of the escapes that these files use: a tab parts the combos of one action, a comma the
// fields of one line.
QString unescaped(const QString& text) {
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) != u'\\' || i + 1 == text.size()) {
            plain += text.at(i);
            continue;
        }
        switch (text.at(++i).unicode()) {
        case u't':
            plain += u'\t';
            break;
        case u'n':
            plain += u'\n';
            break;
        case u's':
            plain += u' ';
            break;
        default:
            plain += text.at(i);
        }
    }
    return plain;
}

// Fields between commas; one behind a backslash belongs to the text.
QStringList fields(const QString& value) {
    QStringList fields{QString()};
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value.at(i) == u'\\' && i + 1 < value.size()) {
            // The comma key is written with two: the file's escape and the list's.
            const bool isDoubled = value.sliced(i).startsWith(u"\\\\,");
            fields.last() += isDoubled ? QStringLiteral("\\,") : value.sliced(i, 2);
            i += isDoubled ? 2 : 1;
        } else if (value.at(i) == u',') {
            fields.append(QString());
        } else {
            fields.last() += value.at(i);
        }
    }
    for (QString& field : fields)
        field = unescaped(field);
    return fields;
}

template <typename Entry> void forEachEntry(const QByteArray& bytes, Entry entry) {
    QString group;
    for (const QString& line : QString::fromUtf8(bytes).split(u'\n')) {
        const QString text = line.trimmed();
        if (text.startsWith(u'[')) {
            group = text;
            continue;
        }
        const qsizetype equals = text.indexOf(u'=');
        if (equals > 0 && !text.startsWith(u'#'))
            entry(group, text.left(equals).trimmed(), text.sliced(equals + 1));
    }
}

// What a tap of Super does is a setting of the window manager up to Plasma 5: it opens the launcher
// unless the entry is there and empty.
bool launcherTakesSuper(const QByteArray& kwin) {
    std::optional<QString> meta;
    forEachEntry(kwin, [&](const QString& group, const QString& key, const QString& value) {
        if (group == u"[ModifierOnlyShortcuts]" && key == u"Meta")
            meta = value.trimmed();
    });
    return !meta || !meta->isEmpty();
}

} // namespace

DesktopClaims kdeClaims(const QByteArray& globalShortcuts, const QByteArray& kwin) {
    DesktopClaims claims;
    forEachEntry(globalShortcuts,
                 [&claims](const QString&, const QString& key, const QString& value) {
                     if (key == u"_k_friendly_name")
                         return;
                     // Active combos, default ones, a name for people.
                     const QStringList parts = fields(value);
                     const QString action = parts.size() > 2 ? parts.at(2) : key;
                     for (const QString& combo : parts.first().split(u'\t', Qt::SkipEmptyParts)) {
                         if (combo != u"none")
                             claims.add(kdeSpelling(combo), action);
                     }
                 });
    claims.superTap = claims.superTap || launcherTakesSuper(kwin);
    return claims;
}

} // namespace skipnest::linuxdesktop
