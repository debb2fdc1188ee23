// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/LinuxScreens.h"

#include <gtest/gtest.h>

namespace skipnest::linuxdesktop {
namespace {

TEST(ScreenPixelsTest, ConvertsByTheScreenThatHasTheMiddle) {
    // Side by side: one of 3840 x 2160 at 200 %, one of 1920 x 1080 at 150 %.
    const std::vector<ScaledScreen> screens{{QRect(0, 0, 1920, 1080), 2.0},
                                            {QRect(3840, 0, 1280, 720), 1.5}};
    struct Row {
        QRect native;
        std::optional<QRect> expected;
    };
    for (const Row& row : {
             Row{QRect(200, 100, 800, 600), QRect(100, 50, 400, 300)},
             Row{QRect(3900, 150, 300, 150), QRect(3880, 100, 200, 100)},
             // Over the edge: most of it is on the first.
             Row{QRect(3440, 0, 600, 100), QRect(1720, 0, 300, 50)},
             Row{QRect(9000, 0, 100, 100), std::nullopt},
         })
        EXPECT_EQ(fromNativePixels(row.native, screens), row.expected) << row.native.x();
}

} // namespace
} // namespace skipnest::linuxdesktop
