// SPDX-License-Identifier: Apache-2.0
#include "ui/challenge/Flags.h"

#include "ui/challenge/Countries.h"

#include <QFont>
#include <QGlyphRun>
#include <QTextLayout>

namespace skipnest::ui {
namespace {

// Fonts that know the two letters draw them as two framed letters; only one that has the flags
// makes one glyph of them.
bool hasFlags(const QString& family) {
    QFont font(family);
    font.setPixelSize(32);
    QTextLayout layout(flagLetters(QStringLiteral("de")), font);
    layout.beginLayout();
    (void)layout.createLine();
    layout.endLayout();
    qsizetype glyphs = 0;
    for (const QGlyphRun& run : layout.glyphRuns())
        glyphs += run.glyphIndexes().size();
    return glyphs == 1;
}

} // namespace

QString Flags::family() {
    static const QString found = [] {
        const QString ordinary = QFont().family();
        // What fontconfig calls whatever emoji font there is, and what other systems' are called.
        for (const QString& family :
             {ordinary, QStringLiteral("emoji"), QStringLiteral("Apple Color Emoji")})
            if (hasFlags(family))
                return family;
        return QString();
    }();
    return found;
}

QString Flags::text(const QString& code) {
    return countryName(code).isEmpty() ? QString() : flagLetters(code);
}

} // namespace skipnest::ui
