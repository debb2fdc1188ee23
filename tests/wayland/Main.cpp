// SPDX-License-Identifier: Apache-2.0
#include "tests/wayland/WaylandDesktop.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <cstdio>

int main(int argc, char** argv) {
    using skipnest::waylandtest::WaylandDesktop;
    testing::InitGoogleTest(&argc, argv);
    if (const QStringList missing = WaylandDesktop::missingPrograms(); !missing.isEmpty()) {
        std::printf("SKIPPED SUITE: not installed: %s\n", qPrintable(missing.join(u' ')));
        return 0;
    }
    const WaylandDesktop desktop;
    if (!desktop.failure().isEmpty()) {
        std::printf("%s\n", qPrintable(desktop.failure()));
        return 1;
    }
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
