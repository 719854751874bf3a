// SPDX-License-Identifier: GPL-3.0-or-later
#include "overlays/message_window.h"

#include "config/settings.h"
#include "config/settings_file.h"
#include "platform/device_contexts.h"
#include "platform/messages.h"
#include "platform/test_access.h"
#include "platform/window.h"
#include "render/primitives.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

constexpr std::uint32_t boxColor = 0x102030;
constexpr std::uint32_t inkColor = 0xFFFFFF;

// A bounding rectangle on the screen, in pixels.
struct Extent {
    int left = 10000;
    int top = 10000;
    int right = 0;
    int bottom = 0;
};

class MessageWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        setScreenSize(640, 480);
        char empty[] = "missing.ini";
        iniPath = empty;
        loadSettings();
        settings.backgroundColor = 0x302010;
        settings.fontColor = 0xFFFFFF;
        const HDC dc = CreateCompatibleDC(nullptr);
        selectFont(dc, settings.fontFace, settings.fontSize, 0, 0);
        lineHeight = textHeight(dc);
        shortWidth = textWidth(dc, "Short");
        DeleteDC(dc);
    }
    void TearDown() override { hideMessage(); }

    static Extent extentOf(bool (*counts)(std::uint32_t)) {
        const ScreenPixels screen = screenPixels();
        Extent extent;
        for (int y = 0; y < screen.height; ++y) {
            for (int x = 0; x < screen.width; ++x) {
                if (counts(screen.pixels[y * screen.stride + x])) {
                    extent.left = std::min(extent.left, x);
                    extent.top = std::min(extent.top, y);
                    extent.right = std::max(extent.right, x + 1);
                    extent.bottom = std::max(extent.bottom, y + 1);
                }
            }
        }
        return extent;
    }
    static Extent boxExtent() {
        return extentOf([](std::uint32_t pixel) { return pixel != 0; });
    }
    static Extent inkExtent() {
        return extentOf([](std::uint32_t pixel) {
            return (pixel & 0xFF) > 0xA0 && pixel != 0xC8C8C8; // the colour of the frame
        });
    }

    int lineHeight = 0;
    int shortWidth = 0;
};

TEST_F(MessageWindowTest, IsCentredAndAsLargeAsItsTextAtEveryRotation) {
    for (const std::int32_t rotation : {0, 180, 90, -90}) {
        settings.orientation = rotation;
        showMessage("Short");
        const Extent box = boxExtent();
        const bool quarter = isQuarterTurn(rotation);
        const int width = (quarter ? lineHeight : shortWidth) + 30;
        const int height = (quarter ? shortWidth : lineHeight) + 30;
        EXPECT_EQ(box.right - box.left, width) << rotation;
        EXPECT_EQ(box.bottom - box.top, height) << rotation;
        EXPECT_EQ(box.left, (640 - width) / 2) << rotation;
        EXPECT_EQ(box.top, (480 - height) / 2) << rotation;
        const Extent ink = inkExtent();
        EXPECT_GT(ink.left, box.left + 8) << rotation;
        EXPECT_GT(ink.top, box.top + 8) << rotation;
        EXPECT_LT(ink.right, box.right - 8) << rotation;
        EXPECT_LT(ink.bottom, box.bottom - 8) << rotation;
        hideMessage();
    }
}

TEST_F(MessageWindowTest, KeepsAMarginToTheScreenEdgesWithALongText) {
    const std::string text(500, 'W');
    for (const std::int32_t rotation : {0, 90, 180, -90}) {
        settings.orientation = rotation;
        showMessage(text.c_str());
        const Extent box = boxExtent();
        if (isQuarterTurn(rotation)) {
            EXPECT_EQ(box.top, 15);
            EXPECT_EQ(box.bottom, 465);
        } else {
            EXPECT_EQ(box.left, 15);
            EXPECT_EQ(box.right, 625);
        }
        hideMessage();
    }
}

TEST_F(MessageWindowTest, ReplacesTheText) {
    showMessage("A text that is rather long");
    showMessage("nnnn");
    const Extent first = inkExtent();
    EXPECT_LT(boxExtent().right - boxExtent().left, 150) << "the previous text is erased";
    showMessage("uuuu"); // as wide as the previous text
    const Extent second = inkExtent();
    EXPECT_EQ(first.right - first.left, second.right - second.left);
    const ScreenPixels screen = screenPixels();
    int inkAtTop = 0;
    for (int x = second.left; x < second.right; ++x) {
        inkAtTop += (screen.pixels[second.top * screen.stride + x] & 0xFF) > 0xA0 ? 1 : 0;
    }
    EXPECT_LT(inkAtTop, (second.right - second.left) * 2 / 5) << "n is closed at the top, u is open";
    hideMessage();
    hideMessage();
    MSG message{};
    PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);
    EXPECT_EQ(screenPixels().pixels[240 * 640 + 320], 0U) << "the box is removed from the screen";
    for (int round = 0; round < 20; ++round) {
        showMessage("");
        EXPECT_EQ(boxExtent().right - boxExtent().left, 30);
        hideMessage();
    }
}

TEST_F(MessageWindowTest, ReportsAWindowThatCannotBeCreated) {
    WNDCLASSA taken{};
    taken.lpszClassName = "MessageWndClass";
    taken.lpfnWndProc = DefWindowProcA;
    ASSERT_TRUE(RegisterClassA(&taken));
    testing::internal::CaptureStderr();
    showMessage("text");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error: Failed to create message window!\n");
    hideMessage();
    UnregisterClassA("MessageWndClass", nullptr);
    showMessage("Short");
    EXPECT_GT(boxExtent().right, 0) << "works again";
}

} // namespace
