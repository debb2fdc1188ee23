// SPDX-License-Identifier: Apache-2.0
#include "platform/JsonDefaults.h"

#include "platform/sim/MemoryFiles.h"

#include <gmock/gmock.h>

namespace skipnest::platform {
namespace {

const QString path = QStringLiteral("/home/a/.config/Skipnest/defaults.json");
const QString key = QStringLiteral("sk.install.id");

TEST(JsonDefaultsTest, keepsValuesAcrossRunsAndForgetsRemovedOnes) {
    sim::MemoryFiles files;
    {
        JsonDefaults defaults(files, path);
        EXPECT_TRUE(defaults.value(key).isUndefined());
        EXPECT_TRUE(defaults.setValue(key, QStringLiteral("x")));
        EXPECT_TRUE(defaults.setValue(QStringLiteral("sk.other"), 1));
    }
    JsonDefaults defaults(files, path);
    EXPECT_EQ(defaults.value(key), QStringLiteral("x"));
    EXPECT_TRUE(defaults.setValue(key, QJsonValue(QJsonValue::Undefined)));
    EXPECT_TRUE(JsonDefaults(files, path).value(key).isUndefined());
}

TEST(JsonDefaultsTest, brokenFileIsKeptAsideAndAFullDiskKeepsTheValueInMemory) {
    sim::MemoryFiles files;
    ASSERT_TRUE(files.createFolder(QStringLiteral("/home/a/.config/Skipnest")));
    ASSERT_TRUE(files.write(path, "{\"half\":"));
    JsonDefaults defaults(files, path);
    EXPECT_TRUE(defaults.value(key).isUndefined());
    EXPECT_EQ(files.read(path, 100).value(), "{\"half\":"); // reading alone changes nothing
    EXPECT_TRUE(defaults.setValue(key, 1));
    EXPECT_EQ(files.read(path + QStringLiteral(".corrupt"), 100).value(), "{\"half\":");

    files.failAfter(0);
    EXPECT_FALSE(defaults.setValue(key, 2));
    EXPECT_EQ(defaults.value(key).toInt(), 2);
}

} // namespace
} // namespace skipnest::platform
