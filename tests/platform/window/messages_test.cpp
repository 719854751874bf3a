// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/end_request.h"
#include "platform/clock.h"
#include "platform/display/display.h"
#include "platform/joystick.h"
#include "platform/keys.h"
#include "platform/messages.h"
#include "platform/painting.h"
#include "platform/virtual_clock.h"
#include "platform/window.h"
#include "support/recording_window.h"
#include "support/sdl_events.h"

#include <gtest/gtest.h>

#include <csignal>
#include <functional>

namespace {

using Messages = std::vector<std::string>;

class MessagesTest : public ::testing::Test {
protected:
    void SetUp() override {
        displaySetSize(320, 240);
        registerRecordingClass();
        window = makeRecordingWindow(0, 0, 320, 240);
        ShowWindow(window, SW_SHOW);
        UpdateWindow(window);
        takeMessages();
    }

    // Dispatches up to `limit` queued messages and returns their names in order.
    static Messages drain(int limit = 50) {
        Messages order;
        MSG message{};
        while (limit-- > 0 && PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            if (!GetMessageA(&message, nullptr, 0, 0)) {
                order.push_back("QUIT " + std::to_string(message.wParam));
                continue;
            }
            order.push_back(messageName(message.message, 0));
            DispatchMessageA(&message);
        }
        return order;
    }

    HWND window = nullptr;
};

TEST_F(MessagesTest, InvalidationsMergeIntoOnePaintAfterInput) {
    InvalidateRect(window, nullptr, FALSE);
    InvalidateRect(window, nullptr, FALSE);
    pressKey(SDL_SCANCODE_UP);
    Sleep(10);
    EXPECT_EQ(drain(), (Messages{"KEYDOWN", "PAINT"}));
    EXPECT_EQ(takeMessages(), (Messages{"KEYDOWN", "PAINT"})) << "without erase the background is not filled";
    InvalidateRect(window, nullptr, TRUE);
    drain();
    EXPECT_EQ(takeMessages(), (Messages{"PAINT", "ERASE"}));
    ShowWindow(window, SW_HIDE);
    takeMessages();
    InvalidateRect(window, nullptr, FALSE);
    EXPECT_EQ(drain(), Messages{}) << "a hidden window is not painted";
}

TEST_F(MessagesTest, AQuitIsDeliveredOnceBeforeKeysAndPaints) {
    InvalidateRect(window, nullptr, FALSE);
    pressKey(SDL_SCANCODE_ESCAPE);
    Sleep(10);
    PostQuitMessage(3);
    EXPECT_EQ(drain(), (Messages{"QUIT 3", "KEYDOWN", "PAINT"}));
}

TEST_F(MessagesTest, CloseRequestsAndSignalsCloseTheMainWindow) {
    const auto requests = {+[] { pushEvent(SDL_QUIT); }, +[] { pushWindowEvent(SDL_WINDOWEVENT_CLOSE); },
                           +[] { std::raise(SIGTERM); }, +[] { std::raise(SIGINT); },
                           +[] { std::raise(SIGHUP); }};
    const HWND popup = makeRecordingWindow(0, 0, 10, 10, window);
    ShowWindow(popup, SW_SHOW);
    drain();
    const std::string endSession = std::to_string(WM_ENDSESSION);
    Messages sentInSleep = {endSession};
    for (const auto request : requests) {
        forgetEndRequest();
        takeMessages();
        request();
        Sleep(10);
        EXPECT_EQ(takeMessages(), sentInSleep) << "sent once, and nothing is dispatched during a sleep";
        sentInSleep.clear();
        for (int time = 0; time < 2; ++time) {
            MSG message{};
            ASSERT_TRUE(GetMessageA(&message, nullptr, 0, 0));
            EXPECT_EQ(message.message, WM_CLOSE) << "repeated after it was dropped";
            EXPECT_EQ(message.hwnd, window);
        }
    }
    DefWindowProcA(window, WM_CLOSE, 0, 0);
    RECT rect{};
    EXPECT_FALSE(GetClientRect(window, &rect)) << "the default handling destroys the window";
    EXPECT_EQ(makeRecordingWindow(0, 0, 10, 10, window), nullptr) << "its owner is gone";
    EXPECT_TRUE(endRequested()) << "no popup clears the request";
}

TEST_F(MessagesTest, SendsFocusChangesOfTheDisplayAtTheNextPoll) {
    pressKey(SDL_SCANCODE_UP);
    pushWindowEvent(SDL_WINDOWEVENT_FOCUS_LOST);
    Sleep(10);
    EXPECT_EQ(takeMessages(), Messages{});
    EXPECT_EQ(GetAsyncKeyState(VK_UP), 1) << "the press is kept, but the key no longer counts as down";
    drain();
    EXPECT_EQ(takeMessages(), (Messages{"KILLFOCUS", "KEYDOWN", "NULL"}));
    const HWND popup = makeRecordingWindow(0, 0, 10, 10, window);
    ShowWindow(popup, SW_SHOW);
    EXPECT_EQ(takeMessages(), (Messages{"NCCREATE", "CREATE", "SIZE 10x10"}))
        << "no focus while the display has none";
    DestroyWindow(popup);
    takeMessages();
    pushWindowEvent(SDL_WINDOWEVENT_FOCUS_GAINED);
    Sleep(10);
    drain();
    EXPECT_EQ(takeMessages(), Messages{"SETFOCUS"});
}

TEST_F(MessagesTest, ATapReadAfterItsReleaseQueuesANullMessage) {
    pressKey(SDL_SCANCODE_UP);
    Sleep(10);
    drain();
    EXPECT_NE(GetAsyncKeyState(VK_UP), 0);
    EXPECT_EQ(drain(), Messages{}) << "the key is still down";
    releaseKey(SDL_SCANCODE_UP);
    pressKey(SDL_SCANCODE_DOWN);
    releaseKey(SDL_SCANCODE_DOWN);
    Sleep(10);
    drain();
    takeMessages();
    for (int read = 0; read < 3; ++read) {
        GetAsyncKeyState(VK_DOWN);
    }
    drain();
    EXPECT_EQ(takeMessages(), Messages{"NULL"});
}

TEST_F(MessagesTest, ALoopThatOnlyPollsIsSlowedDownAndAnyOtherIsNot) {
    MSG message{};
    const auto poll = [&] { return PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE); };
    std::int64_t start = virtualClockMilliseconds();
    Sleep(0);
    EXPECT_EQ(virtualClockMilliseconds(), start);
    int polls = 0;
    for (; polls < 10'000 && virtualClockMilliseconds() - start < 1000; ++polls) {
        EXPECT_FALSE(poll());
    }
    EXPECT_LT(polls, 100) << "a loop of Sleep(1) makes 50";
    start = virtualClockMilliseconds();
    virtualClockAt(start + 25, [] { pressKey(SDL_SCANCODE_UP); });
    while (!poll()) {
    }
    EXPECT_LE(virtualClockMilliseconds() - start, 25 + 20)
        << "a message is found right after the sleep in which it arrives";
    drain();

    JOYINFO joystick{};
    RECT client{};
    const struct {
        const char* what;
        std::function<void()> work;
        int ownMilliseconds;
    } loops[] = {{"reads a key", [] { GetAsyncKeyState(VK_UP); }, 0},
                 {"reads the joystick", [&] { joyGetPos(0, &joystick); }, 0},
                 {"queries a window", [&] { GetClientRect(window, &client); }, 0},
                 {"takes messages",
                  [&] {
                      InvalidateRect(window, nullptr, FALSE);
                      drain(1);
                  },
                  0},
                 {"computes", [] { virtualClockAdvance(1); }, 1}};
    for (const auto& loop : loops) {
        start = virtualClockMilliseconds();
        for (int pass = 0; pass < 200; ++pass) {
            loop.work();
            poll();
        }
        EXPECT_EQ(virtualClockMilliseconds() - start, 200 * loop.ownMilliseconds) << loop.what;
    }
}

TEST_F(MessagesTest, RepeatsOfAHeldKeyMergeAndFollowPaints) {
    static std::vector<LPARAM> repeatCounts;
    messageHooks[WM_KEYDOWN] = [](HWND, WPARAM, LPARAM state) { repeatCounts.push_back(state & 0xFFFF); };
    const auto repeatKey = [](SDL_Scancode key) { pushKeyEvent(key, true, 1); };
    const auto drainAfterEvents = [&] {
        InvalidateRect(window, nullptr, FALSE);
        Sleep(10);
        repeatCounts.clear();
        return drain();
    };
    pressKey(SDL_SCANCODE_UP);
    for (int repeat = 0; repeat < 5; ++repeat) {
        repeatKey(SDL_SCANCODE_UP);
    }
    EXPECT_EQ(drainAfterEvents(), (Messages{"KEYDOWN", "PAINT", "KEYDOWN"}));
    EXPECT_EQ(repeatCounts, (std::vector<LPARAM>{1, 5}));

    repeatKey(SDL_SCANCODE_UP);
    releaseKey(SDL_SCANCODE_UP);
    pressKey(SDL_SCANCODE_UP);
    pressKey(SDL_SCANCODE_DOWN);
    for (const SDL_Scancode key : {SDL_SCANCODE_UP, SDL_SCANCODE_DOWN, SDL_SCANCODE_UP}) {
        repeatKey(key);
    }
    EXPECT_EQ(drainAfterEvents(),
              (Messages{"PAINT", "KEYDOWN", "KEYUP", "KEYDOWN", "KEYDOWN", "KEYDOWN", "KEYDOWN"}))
        << "presses and releases keep their order";
    EXPECT_EQ(repeatCounts, (std::vector<LPARAM>{1, 1, 1, 2, 1}));
}

TEST_F(MessagesTest, DropsTheOldestPressesOfAFullQueue) {
    for (int press = 0; press < 2000; ++press) {
        pressKey(SDL_SCANCODE_UP);
        releaseKey(SDL_SCANCODE_UP);
        if (press % 100 == 99) {
            Sleep(10);
        }
    }
    EXPECT_EQ(drain(10000).size(), 256U);
}

} // namespace
