// SPDX-License-Identifier: GPL-3.0-or-later
#include "overlays/menu_window.h"

#include "platform/device_contexts.h"
#include "platform/drawing_objects.h"
#include "platform/messages.h"
#include "platform/test_access.h"
#include "platform/window.h"
#include "render/primitives.h"
#include "support/popup_fixture.h"

#include <cstdlib>
#include <string>
#include <vector>

namespace {

class MenuWindowTest : public PopupTest {
protected:
    ~MenuWindowTest() override {
        freeMenuList(items, count);
        closeMenuWindows();
    }

    void makeItems(int lines) {
        count = lines;
        items = static_cast<MenuItem**>(std::calloc(static_cast<std::size_t>(lines), sizeof(MenuItem*)));
        for (int line = 0; line < lines; ++line) {
            items[line] = newYesNoItem(("Line " + std::to_string(line)).c_str(), 1);
        }
    }

    // The indices of the lines whose choice was changed.
    std::vector<int> changed() const {
        std::vector<int> lines;
        for (int line = 0; line < count; ++line) {
            if (items[line]->current != 0) {
                lines.push_back(line);
            }
        }
        return lines;
    }

    // The bounding rectangle of a colour on the screen.
    static RECT extentOf(std::uint32_t color) {
        const ScreenPixels screen = screenPixels();
        RECT rect{screen.width, screen.height, 0, 0};
        for (int y = 0; y < screen.height; ++y) {
            for (int x = 0; x < screen.width; ++x) {
                if (screen.pixels[y * screen.stride + x] == color) {
                    rect = {std::min(rect.left, x), std::min(rect.top, y), std::max(rect.right, x + 1),
                            std::max(rect.bottom, y + 1)};
                }
            }
        }
        return rect;
    }

    MenuItem** items = nullptr;
    std::int32_t count = 0;
};

TEST_F(MenuWindowTest, MovesAndStepsInBothDirectionsForBothPlayers) {
    makeItems(3);
    std::int64_t time = 50;
    for (const SDL_Scancode key :
         {SDL_SCANCODE_UP, SDL_SCANCODE_RIGHT, SDL_SCANCODE_DOWN, SDL_SCANCODE_LEFT, SDL_SCANCODE_F,
          SDL_SCANCODE_G, SDL_SCANCODE_D, SDL_SCANCODE_RETURN, SDL_SCANCODE_1, SDL_SCANCODE_LCTRL}) {
        tap(time, key);
        time += 100;
    }
    tap(time, SDL_SCANCODE_W);
    const std::int64_t start = virtualClockMilliseconds();
    EXPECT_EQ(runMenu(items, count), 1);
    EXPECT_LT(virtualClockMilliseconds() - start, time + 200) << "one key press closes the menu";
    EXPECT_EQ(changed(), (std::vector<int>{0, 2}));

    tap(50, SDL_SCANCODE_RIGHT);
    at(200, [] { pressKey(SDL_SCANCODE_ESCAPE); });
    at(700, [] { releaseKey(SDL_SCANCODE_ESCAPE); });
    EXPECT_EQ(runMenu(items, count), 1);
    EXPECT_EQ(changed(), std::vector<int>{2}) << "the choices are kept, the selection is reset";
}

TEST_F(MenuWindowTest, FitsItsTextsAndIsCentredAtEveryRotation) {
    makeItems(10);
    settings.backgroundColor = 0x563412;
    settings.invertPlayer2Screen = 1;
    const HDC dc = CreateCompatibleDC(nullptr);
    selectFont(dc, settings.fontFace, settings.menuFontSize, 0, 0);
    const LONG along = textWidth(dc, "Line 0") + textWidth(dc, "Yes") + 112;
    const LONG across = 10 * textHeight(dc);
    DeleteObject(SelectObject(dc, GetStockObject(BLACK_BRUSH)));
    DeleteDC(dc);
    for (const std::int32_t rotation : {0, 90, 180, -90}) {
        settings.orientation = settings.baseOrientation = rotation;
        const bool turned = isQuarterTurn(rotation);
        at(50, [=] {
            const RECT rect = extentOf(0x123456);
            EXPECT_NEAR(rect.right - rect.left, turned ? across : along, 6) << rotation;
            EXPECT_NEAR(rect.bottom - rect.top, turned ? along : across, 6) << rotation;
            EXPECT_NEAR(rect.left + rect.right, 640, 12);
        });
        tap(150, SDL_SCANCODE_F);
        at(290, [=] {
            EXPECT_EQ(settings.orientation - rotation == 180 || settings.orientation - rotation == -180,
                      true);
        });
        tap(350, SDL_SCANCODE_DOWN);
        at(490, [=] { EXPECT_EQ(settings.orientation, rotation); });
        tap(550, SDL_SCANCODE_ESCAPE);
        EXPECT_EQ(runMenu(items, count), 1);
    }
}

TEST_F(MenuWindowTest, HasTheBarOfTheListInTheTurnedLayout) {
    makeItems(4);
    settings.backgroundColor = 0x563412;
    settings.highlightBackColor = 0x0000FF;
    for (const std::int32_t rotation : {0, 90, 180, -90}) {
        settings.orientation = rotation;
        for (const std::int32_t layout : {layoutFixed, layoutTurned}) {
            settings.layout = layout;
            at(90, [=] {
                const RECT menu = extentOf(0x123456); // its first line is covered by the bar
                const RECT bar = extentOf(0xFF0000);
                EXPECT_EQ(bar.right > 0, layout == layoutTurned) << rotation;
                const bool atTheStart = rotation == 0     ? bar.bottom == menu.top
                                        : rotation == 90  ? bar.left == menu.right
                                        : rotation == 180 ? bar.top == menu.bottom
                                                          : bar.right == menu.left;
                EXPECT_TRUE(layout == layoutFixed || atTheStart) << rotation;
            });
            tap(150, SDL_SCANCODE_ESCAPE);
            runMenu(items, count);
        }
    }
}

TEST_F(MenuWindowTest, ScrollsAListThatIsLongerThanTheScreen) {
    makeItems(200);
    settings.menuFontSize = 36;
    tap(50, SDL_SCANCODE_UP); // to the last
    tap(150, SDL_SCANCODE_RIGHT);
    at(250, [] { pressKey(SDL_SCANCODE_DOWN); }); // to the first and on
    at(2230, [] { releaseKey(SDL_SCANCODE_DOWN); });
    tap(2350, SDL_SCANCODE_LEFT);
    tap(2450, SDL_SCANCODE_ESCAPE);
    EXPECT_EQ(runMenu(items, count), 1);
    EXPECT_EQ(changed(), (std::vector<int>{19, 199}));
}

TEST_F(MenuWindowTest, ALineCanOpenASubMenu) {
    makeItems(2);
    items[1]->subItems = static_cast<MenuItem**>(std::calloc(1, sizeof(MenuItem*)));
    items[1]->subItems[0] = newCountItem("Inner", 3);
    items[1]->subItemCount = 1;
    std::int64_t time = 50;
    for (const SDL_Scancode key :
         {SDL_SCANCODE_DOWN, SDL_SCANCODE_RIGHT, SDL_SCANCODE_RIGHT, SDL_SCANCODE_RIGHT, SDL_SCANCODE_LEFT,
          SDL_SCANCODE_G, SDL_SCANCODE_G, SDL_SCANCODE_D, SDL_SCANCODE_ESCAPE, SDL_SCANCODE_UP,
          SDL_SCANCODE_RIGHT, SDL_SCANCODE_ESCAPE}) {
        tap(time, key);
        time += 300;
    }
    EXPECT_EQ(runMenu(items, count), 1);
    EXPECT_EQ(items[1]->subItems[0]->current, 3 + 2 - 1 + 2 - 1);
    EXPECT_EQ(changed(), std::vector<int>{0});

    tap(50, SDL_SCANCODE_DOWN);
    tap(350, SDL_SCANCODE_RIGHT);
    at(650, [] { pushEvent(SDL_QUIT); });
    EXPECT_EQ(runMenu(items, count), 1) << "closing the main window closes both menus";
    EXPECT_FALSE(GetClientRect(mainWindow, nullptr));
}

TEST_F(MenuWindowTest, EndsOnQuitAndWorksWithoutLines) {
    PostQuitMessage(7);
    EXPECT_EQ(runMenu(nullptr, 0), 1);
    for (const SDL_Scancode key : {SDL_SCANCODE_UP, SDL_SCANCODE_RIGHT, SDL_SCANCODE_LEFT}) {
        tap(50, key);
    }
    tap(250, SDL_SCANCODE_ESCAPE);
    EXPECT_EQ(runMenu(nullptr, 0), 1);
}

} // namespace
