// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the pages: drawing on every screen, its controls, capturing controls and showing their codes.
#include "setup/pages/page_window.h"

#include "config/settings.h"
#include "config/settings_file.h"
#include "setup/page_keys.h"
#include "setup/pages/applied_settings.h"
#include "setup/pages/control_capture.h"
#include "setup/pages/key_display.h"

#include <gtest/gtest.h>

#include <set>

namespace {

class PageWindow : public ::testing::Test {
protected:
    PageWindow() {
        forgetFormerWindow();
        setScreenSize(640, 480);
        applySettings(ChosenSettings());
    }
    ~PageWindow() override { freeSettings(); }
};

// The border of every page is free, so nothing is cut off, on every screen and at every rotation.
TEST_F(PageWindow, AreWholeOnEveryScreen) {
    PageContent content;
    const std::string longText(200, 'W');
    content.title = content.help = content.notice = content.large = content.place = longText.substr(0, 60);
    content.help += " " + longText + " and a text that is long enough for more than one line on each screen";
    content.notice = content.keys = content.help;
    content.place = "1 of 6";
    content.columns = {{longText, 30}, {"Number", 20, true}};
    content.lines.assign(40, {longText, {longText, "12345"}, longText, nullptr, nullptr, nullptr});
    ChosenSettings chosen;
    for (const SIZE size : {SIZE{640, 480}, SIZE{1280, 1024}, SIZE{1920, 1080}}) {
        for (const char* word : {"Normal", "ROL", "ROR", "Inverted"}) {
            chosen.set("Settings", "Orientation", word);
            applySettings(chosen);
            setScreenSize(size.cx, size.cy);
            ASSERT_TRUE(openPageWindow());
            showPage(content);
            servePageWindow();
            std::set<std::uint32_t> border;
            for (int x = 0; x < size.cx; ++x) {
                border.insert({pixelAt(x, 1), pixelAt(x, size.cy - 2)});
            }
            for (int y = 0; y < size.cy; ++y) {
                border.insert({pixelAt(1, y), pixelAt(size.cx - 2, y)});
            }
            EXPECT_EQ(border, (std::set{pixelOfColor(settings.backgroundColor),
                                        pixelOfColor(settings.statusBarBackColor),
                                        pixelOfColor(settings.highlightBackColor)}))
                << size.cx << " " << word;
            closePageWindow();
            forgetFormerWindow();
        }
    }
}

TEST_F(PageWindow, OnlyMovesRepeatWhileAControlIsHeld) {
    ASSERT_TRUE(openPageWindow());
    int steps = 0;
    int choices = 0;
    PageContent content;
    content.lines = {{"Line",
                      {},
                      "",
                      [&choices] {
                          ++choices;
                          return PageAction::stay;
                      },
                      [&steps](int direction) { steps += direction; },
                      nullptr}};
    const std::int64_t start = virtualClockMilliseconds();
    tapAt(start + 100, SDL_SCANCODE_RIGHT, 350);   // one step
    tapAt(start + 1000, SDL_SCANCODE_LEFT, 850);   // one, and five from 400 ms on
    tapAt(start + 2000, SDL_SCANCODE_RETURN, 900); // one choice
    tapAt(start + 3000, SDL_SCANCODE_ESCAPE);
    content.notice = "shown until the first action";
    std::vector<bool> hasNotice;
    for (const std::int64_t time : {50, 900}) {
        virtualClockAt(start + time, [&hasNotice] {
            hasNotice.push_back(pixelAt(1, 450) == pixelOfColor(settings.highlightBackColor));
        });
    }
    EXPECT_EQ(runPage([&content] {
                  PageContent built = content;
                  built.notice = std::exchange(content.notice, "");
                  return built;
              }),
              PageAction::back);
    EXPECT_EQ(hasNotice, (std::vector{true, false}));
    EXPECT_EQ(choices, 1);
    EXPECT_EQ(steps, 1 - 1 - 5);
    closePageWindow();
}

TEST_F(PageWindow, AJoystickThatIsPluggedInChoosesAndIsCaptured) {
    ASSERT_TRUE(openPageWindow());
    SDL_Joystick* pad = nullptr;
    const auto button = [&pad](std::int64_t time, int number, bool down) {
        virtualClockAt(virtualClockMilliseconds() + time,
                       [&pad, number, down] { SDL_JoystickSetVirtualButton(pad, number, down ? 1 : 0); });
    };
    virtualClockAt(virtualClockMilliseconds() + 100, [&pad] {
        SDL_InitSubSystem(SDL_INIT_JOYSTICK);
        pad = SDL_JoystickOpen(SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 2, 12, 1));
    });
    PageContent content;
    CapturedControl captured;
    // Button 1 chooses; it is held when the capture starts, and counts when it is pressed again.
    int captures = 0;
    const auto capture = [&captured, &captures] {
        ++captures;
        captured = captureControl(true, 1000);
        return PageAction::stay;
    };
    content.lines = {{"Line", {}, "", capture, nullptr, nullptr}};
    button(300, 0, true);
    button(500, 0, false);
    button(700, 0, true);
    button(900, 0, false);
    button(1100, 1, true);
    EXPECT_EQ(runPage([&content] { return content; }), PageAction::back);
    EXPECT_TRUE(captured.isJoystick);
    EXPECT_EQ(captured.code, 1);
    EXPECT_EQ(captures, 1) << "the captured press does not choose as well";
    closePageWindow();
    SDL_JoystickClose(pad);
    SDL_JoystickDetachVirtual(0);
}

TEST_F(PageWindow, KeysAreShownUntilNothingIsPressed) {
    const struct {
        std::vector<SDL_Scancode> keys;
        std::string printed;
        std::int64_t end; // seconds after the first key
    } cases[] = {
        {{SDL_SCANCODE_A, SDL_SCANCODE_RCTRL}, "Key 65 A\nKey 163 Right Ctrl\n", 11},
        {{SDL_SCANCODE_ESCAPE, SDL_SCANCODE_B, SDL_SCANCODE_ESCAPE, SDL_SCANCODE_ESCAPE},
         "Key 27 Escape\nKey 66 B\nKey 27 Escape\nKey 27 Escape\n",
         3},
    };
    for (const auto& row : cases) {
        const std::int64_t start = virtualClockMilliseconds() + 20000; // nothing ends before the first press
        for (std::size_t index = 0; index < row.keys.size(); ++index) {
            tapAt(start + static_cast<std::int64_t>(index) * 1000, row.keys[index]);
        }
        forgetFormerWindow();
        testing::internal::CaptureStdout();
        EXPECT_EQ(showPressedKeys(), 0);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.printed);
        EXPECT_EQ((virtualClockMilliseconds() - start + 500) / 1000, row.end);
    }
}

} // namespace
