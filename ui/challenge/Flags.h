// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QString>
#include <qqmlintegration.h>

namespace skipnest::ui {

// Flags as the fonts of this machine have them.
class Flags final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    // Of the font that has flags; empty where none has, and then the letters of the code stand for
    // them.
    Q_PROPERTY(QString family READ family CONSTANT)
public:
    using QObject::QObject;

    [[nodiscard]] static QString family();
    // The text that shows the flag in that font; empty for a code that no country has.
    Q_INVOKABLE static QString text(const QString& code);
};

} // namespace skipnest::ui
