// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/InstalledProgram.h"
#include "platform/linux/PosixFiles.h"
#include "tests/shell/Programs.h"

namespace skipnest::tests {
namespace {

using InstalledProgramTest = InstalledHome;

TEST_F(InstalledProgramTest, FindsWhatAPersonCalls) {
    const linuxdesktop::PosixFiles files;
    platform::AppInfo app = install(QStringLiteral("usr"));
    const QString bin = place.path() + QStringLiteral("/usr/bin/skipnest");
    const auto found = [&] { return linuxdesktop::installedProgram(files, app); };
    EXPECT_EQ(found().path, bin);
    EXPECT_TRUE(found().installed);
    app.bundlePath = bin;
    EXPECT_EQ(found().path, bin);
    EXPECT_TRUE(found().installed);

    const QString built = place.path() + QStringLiteral("/build/main/skipnest");
    put(built, "");
    app.bundlePath = built + QStringLiteral("-agent");
    put(app.bundlePath, "");
    EXPECT_EQ(found().path, built);
    EXPECT_FALSE(found().installed);
}

} // namespace
} // namespace skipnest::tests
