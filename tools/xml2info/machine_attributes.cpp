// SPDX-License-Identifier: GPL-3.0-or-later
#include "xml2info/machine_attributes.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace {

// Returns the value of an attribute, or an empty text when it is missing.
std::string_view attribute(Attributes attributes, std::string_view name) {
    for (; *attributes; attributes += 2) {
        if (name == attributes[0]) {
            return attributes[1];
        }
    }
    return {};
}

// Returns the number at the start of a value, limited to 0 to 32767, since the reader of the list file keeps
// 16 bits.
int number(std::string_view value) {
    constexpr int largest = 32767;
    int result = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), result);
    if (error == std::errc::result_out_of_range) {
        return value.front() == '-' ? 0 : largest;
    }
    return std::clamp(result, 0, largest);
}

struct ControlTypeWord {
    std::string_view type;
    std::string_view word;
};

// Control types whose word in the list file differs from the name and does not depend on the number of ways.
constexpr ControlTypeWord controlWords[] = {
    {"doublejoy", "doublejoy8way"},
    {"triplejoy", "doublejoy8way"},
};

// The ways of joysticks that are not 8-way, as values of the "ways" attribute and as suffixes of older types.
constexpr ControlTypeWord joystickWays[] = {
    {"2", "joy2way"},    {"vertical2", "joy2way"}, {"4", "joy4way"},         {"3 (half4)", "joy4way"},
    {"2way", "joy2way"}, {"4way", "joy4way"},      {"3half4way", "joy4way"},
};

std::string_view controlWord(std::string_view type, std::string_view ways) {
    std::string_view stick = type;
    // Older types have the ways as a suffix, and the prefix v when the stick moves vertically.
    if (stick.starts_with("vjoy") || stick.starts_with("vdoublejoy")) {
        stick.remove_prefix(1);
    }
    for (const ControlTypeWord& row : controlWords) {
        if (stick.starts_with(row.type)) {
            return row.word;
        }
    }
    constexpr std::string_view joystick = "joy";
    if (!stick.starts_with(joystick)) {
        return type;
    }
    const std::string_view wanted = stick.size() > joystick.size() ? stick.substr(joystick.size()) : ways;
    for (const ControlTypeWord& row : joystickWays) {
        if (wanted == row.type) {
            return row.word;
        }
    }
    return "joy8way";
}

} // namespace

void readMachineAttributes(Machine& machine, Attributes attributes) {
    bool runnable = true;
    bool special = false;
    for (; *attributes; attributes += 2) {
        const std::string_view name = attributes[0];
        const std::string_view value = attributes[1];
        if (name == "name") {
            machine.name = value;
        } else if (name == "cloneof") {
            machine.cloneOf = value;
        } else if (name == "romof") {
            machine.romOf = value;
        } else if (name == "isbios" || name == "isdevice") {
            special = special || value == "yes";
        } else if (name == "runnable") {
            runnable = value != "no";
        }
    }
    machine.isResource = special || !runnable;
}

void readDisplayAttributes(Machine& machine, Attributes attributes) {
    machine.hasDisplay = true;
    machine.screen = attribute(attributes, "type");
    const std::string_view rotate = attribute(attributes, "rotate");
    machine.vertical = rotate == "90" || rotate == "270";
    machine.x = number(attribute(attributes, "width"));
    machine.y = number(attribute(attributes, "height"));
    if (machine.vertical) {
        std::swap(machine.x, machine.y);
    }
}

void readVideoAttributes(Machine& machine, Attributes attributes) {
    machine.hasDisplay = true;
    machine.screen = attribute(attributes, "screen");
    machine.vertical = attribute(attributes, "orientation") == "vertical";
    machine.x = number(attribute(attributes, "width"));
    machine.y = number(attribute(attributes, "height"));
    // The oldest versions state the size after rotation. A vertical size that is wider than tall is the one
    // before rotation.
    if (machine.vertical && machine.x > machine.y) {
        std::swap(machine.x, machine.y);
    }
}

void readInputAttributes(Machine& machine, Attributes attributes) {
    machine.hasInput = true;
    machine.players = number(attribute(attributes, "players"));
    machine.coins = number(attribute(attributes, "coins"));
    machine.buttons = number(attribute(attributes, "buttons"));
    machine.control = controlWord(attribute(attributes, "control"), {});
}

void readControlAttributes(Machine& machine, Attributes attributes, bool& isFirstPlayersControl) {
    machine.buttons = std::max(machine.buttons, number(attribute(attributes, "buttons")));
    const std::string_view player = attribute(attributes, "player");
    const bool belongsToFirstPlayer = player.empty() || player == "1";
    if (machine.control.empty() || (belongsToFirstPlayer && !isFirstPlayersControl)) {
        machine.control = controlWord(attribute(attributes, "type"), attribute(attributes, "ways"));
        isFirstPlayersControl = belongsToFirstPlayer;
    }
}
