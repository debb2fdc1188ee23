// SPDX-License-Identifier: Apache-2.0
#include <QCoreApplication>

#include <gtest/gtest.h>

// The bus needs Qt's event loop.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
