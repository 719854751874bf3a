// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/pages/controls_page.h"

#include "setup/control_choice.h"
#include "setup/pages/control_capture.h"
#include "setup/pages/page_window.h"

#include <algorithm>

namespace {

constexpr std::int64_t captureLimit = 6000; // milliseconds

void showQuestion(std::size_t command, ControlSlot slot, std::int64_t left, const std::string& notice) {
    constexpr std::int64_t second = 1000;
    PageContent content;
    content.title = "Press a control";
    content.help = slot == ControlSlot::player2Key
                       ? "A key of player 2 for this command:"
                       : "A key or a joystick control of player 1 for this command:";
    content.large = controlCommands[command].title;
    content.notice = notice;
    content.keys = "Unchanged after " + std::to_string((left + second - 1) / second) + " s without a press";
    showPage(content);
}

// The slot that a captured control belongs to. Player 1 may press either kind.
ControlSlot slotOf(const CapturedControl& captured, ControlSlot asked) {
    if (asked == ControlSlot::player2Key) {
        return asked;
    }
    return captured.isJoystick ? ControlSlot::joystick : ControlSlot::key;
}

// Asks until the press is one that can be used, or nothing is pressed. Commands from `mayLose` on give up
// their control of this player when it is pressed for another: they are asked for next.
void captureCommand(SetupState& state, std::size_t command, ControlSlot asked, std::size_t mayLose) {
    for (;;) {
        std::int64_t shownSeconds = -1;
        const std::string refusal = state.notice;
        const auto showTime = [&](std::int64_t left) {
            if (left / 1000 != shownSeconds) {
                shownSeconds = left / 1000;
                showQuestion(command, asked, left, refusal);
            }
        };
        showTime(captureLimit);
        const CapturedControl captured =
            captureControl(asked != ControlSlot::player2Key, captureLimit, showTime);
        state.notice.clear();
        if (captured.code == 0) {
            return;
        }
        const ControlSlot slot = slotOf(captured, asked);
        const ControlUse use = findControlUse(state.chosen, command, slot, captured.code);
        if (use.isUsed && (use.command < mayLose || use.slot != slot)) {
            state.notice = controlName(slot, captured.code) +
                           " is in use: " + commandName(use.command, use.slot) +
                           ". Press another one, or nothing.";
            continue;
        }
        if (use.isUsed) {
            setControlCode(state.chosen, use.command, use.slot, 0);
        }
        setControlCode(state.chosen, command, slot, captured.code);
        return;
    }
}

PageAction finishCapture(SetupState& state) {
    state.notice = switchOffCollisions(state.chosen);
    return PageAction::stay;
}

PageAction captureOne(SetupState& state, std::size_t command) {
    captureCommand(state, command, controlSlots[static_cast<std::size_t>(state.controlColumn)],
                   controlCommands.size());
    return finishCapture(state);
}

PageAction captureAll(SetupState& state, ControlSlot slot) {
    for (std::size_t command = 0; command < controlCommands.size() && servePageWindow(); ++command) {
        captureCommand(state, command, slot, command + 1);
    }
    return finishCapture(state);
}

PageLine commandLine(SetupState& state, std::size_t command) {
    PageLine line;
    line.label = controlCommands[command].title;
    for (const ControlSlot slot : controlSlots) {
        line.cells.push_back(controlName(slot, controlCode(state.chosen, command, slot)));
    }
    line.detail = state.controlColumn == 2 ? "Enter, then press a key of player 2."
                                           : "Enter, then press a key or a joystick control of player 1.";
    line.choose = [&state, command] { return captureOne(state, command); };
    line.step = [&state](int direction) {
        state.controlColumn = std::clamp(state.controlColumn + direction, 0, 2);
    };
    line.clear = [&state, command] {
        setControlCode(state.chosen, command, controlSlots[static_cast<std::size_t>(state.controlColumn)], 0);
    };
    return line;
}

PageLine rowLine(SetupState& state, const std::string& label, ControlSlot slot) {
    return {label,
            {},
            "Asks for one after the other. What is not pressed within six seconds is unchanged.",
            [&state, slot] { return captureAll(state, slot); },
            nullptr,
            nullptr};
}

} // namespace

PageContent controlsPage(SetupState& state) {
    if (state.notice.empty()) {
        state.notice = switchOffCollisions(state.chosen);
    }
    PageContent content;
    content.title = "Controls";
    content.help = "The keys and joystick controls of the front end. Player 2 has keys only.";
    content.columns = {{"Key", 22}, {"Joystick", 22}, {"Player 2", 22}};
    content.markedColumn = state.controlColumn;
    content.keys = "Arrows: move    Enter: change    Del: none    Esc: back";
    content.notice = state.takeNotice();
    for (std::size_t command = 0; command < controlCommands.size(); ++command) {
        content.lines.push_back(commandLine(state, command));
    }
    content.lines.push_back(rowLine(state, "Player 1, all in a row", ControlSlot::key));
    content.lines.push_back(rowLine(state, "Player 2, all in a row", ControlSlot::player2Key));
    content.lines.push_back({continueLabel, {}, "", [] { return PageAction::forward; }, nullptr, nullptr});
    content.selected = content.lines.size() - 1;
    return content;
}
