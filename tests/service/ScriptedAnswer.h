// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>

namespace skipnest::tests {

// The bytes that a connection answers with, and how they come.
struct ScriptedAnswer {
    enum class Manner {
        whole,     // all bytes, then the connection is closed
        trickling, // one byte every 20 ms, and then zeros for ever
        flooding,  // all bytes, and then zeros until the other side has enough or 64 MB were sent
        silent,    // nothing, and the connection stays
    };
    Manner manner = Manner::whole;
    QByteArray bytes;

    [[nodiscard]] static ScriptedAnswer reply(int status, const QByteArray& body,
                                              const QByteArray& headers = {});
    [[nodiscard]] static ScriptedAnswer redirect(const QByteArray& location);
    // A body that ends before the announced length.
    [[nodiscard]] static ScriptedAnswer cut();
    [[nodiscard]] static ScriptedAnswer trickling();
    // Longer than anybody wants, with no length announced.
    [[nodiscard]] static ScriptedAnswer huge();
    [[nodiscard]] static ScriptedAnswer closedAtOnce() { return {}; }
    [[nodiscard]] static ScriptedAnswer silent() { return {Manner::silent, {}}; }
};

} // namespace skipnest::tests
