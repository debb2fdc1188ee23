// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/e2e/Agent.h"
#include "tests/e2e/DesktopSession.h"
#include "tests/e2e/Fixtures.h"

#include <gtest/gtest.h>

#include <memory>

namespace skipnest::e2e {

// A fresh desktop for every case, with two applications installed and open: One, then Two, which is
// in front. A case that fails leaves a picture, the windows and the logs in a folder it prints.
class DesktopTest : public ::testing::Test {
protected:
    const QString one = QStringLiteral("FixtureOne");
    const QString two = QStringLiteral("FixtureTwo");

    void open(WindowManager windowManager);
    void TearDown() override;

    // One on Ctrl+Alt+J, Two on Ctrl+Alt+K, no voice; then the agent runs.
    void bindBoth();
    void startAgent();

    [[nodiscard]] Windows& windows() { return session->windows(); }
    [[nodiscard]] Keyboard& keyboard() { return session->keyboard(); }
    // Presses the chord and waits for the class to be in front.
    [[nodiscard]] ::testing::AssertionResult jumps(QStringView chord, const QString& className);

    std::unique_ptr<DesktopSession> session;
    std::unique_ptr<Agent> agent;
    QString oneEntry;
    QString twoEntry;
    xcb_window_t oneWindow = XCB_WINDOW_NONE;
    xcb_window_t twoWindow = XCB_WINDOW_NONE;
};

[[nodiscard]] QString nameOf(WindowManager windowManager);

} // namespace skipnest::e2e
