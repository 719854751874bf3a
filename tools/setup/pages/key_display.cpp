// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/key_display.h"
#include "config/settings_file.h"

#include "platform/key_codes.h"
#include "setup/control_choice.h"
#include "setup/pages/applied_settings.h"
#include "setup/pages/control_capture.h"
#include "setup/pages/page_window.h"

#include <cstdio>
#include <deque>
#include <limits>

namespace {

constexpr std::int64_t quietLimit = 10000; // milliseconds
constexpr std::size_t shownPresses = 8;

struct Press {
    std::string kind;
    std::string code;
    std::string name;
};

Press describe(const CapturedControl& control) {
    const ControlSlot slot = control.isJoystick ? ControlSlot::joystick : ControlSlot::key;
    return {control.isJoystick ? "Joystick" : "Key", std::to_string(control.code),
            controlName(slot, control.code)};
}

PageContent keysPage(const std::deque<Press>& presses) {
    PageContent content;
    content.title = "Keys and joystick controls";
    content.help =
        "Press keys and joystick controls to see their codes, which the ini file contains. The codes "
        "16, 17 and 18 mean both keys named Shift, Ctrl and Alt.";
    content.keys = "Ends with Esc twice, or ten seconds after the last press";
    content.columns = {{"Code", 20, true}, {"Name", 55}};
    for (const Press& press : presses) {
        content.lines.push_back({press.kind, {press.code, press.name}, "", nullptr, nullptr, nullptr});
    }
    content.large = presses.empty() ? "" : presses.front().code + "  " + presses.front().name;
    return content;
}

} // namespace

int showPressedKeys() {
    applySettings(ChosenSettings());
    if (!openPageWindow()) {
        std::fputs("kestravox-setup: There is no display to read keys from.\n", stderr);
        return 1;
    }
    std::deque<Press> presses;
    int escapes = 0;
    while (escapes < 2) {
        showPage(keysPage(presses));
        constexpr std::int64_t forever = std::numeric_limits<std::int32_t>::max();
        const CapturedControl control = captureControl(true, presses.empty() ? forever : quietLimit);
        if (control.code == 0) {
            break;
        }
        escapes = control.code == VK_ESCAPE && !control.isJoystick ? escapes + 1 : 0;
        presses.push_front(describe(control));
        if (presses.size() > shownPresses) {
            presses.pop_back();
        }
        std::printf("%s %s %s\n", presses.front().kind.c_str(), presses.front().code.c_str(),
                    presses.front().name.c_str());
        std::fflush(stdout);
    }
    closePageWindow();
    freeSettings();
    return 0;
}
