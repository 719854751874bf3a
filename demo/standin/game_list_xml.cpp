// SPDX-License-Identifier: GPL-3.0-or-later
#include "standin/game_list_xml.h"

#include "games.h"

#include <cstdint>
#include <string>

namespace {

constexpr std::string_view documentHead = R"xml(<?xml version="1.0"?>
<!DOCTYPE mame [
<!ELEMENT mame (machine+)>
    <!ATTLIST mame build CDATA #IMPLIED debug (yes|no) "no" mameconfig CDATA #REQUIRED>
<!ELEMENT machine (description, year?, manufacturer?, rom*, chip*, display*, sound?, input?, driver?)>
    <!ATTLIST machine name CDATA #REQUIRED sourcefile CDATA #IMPLIED>
    <!ATTLIST machine isbios (yes|no) "no" isdevice (yes|no) "no" ismechanical (yes|no) "no" runnable (yes|no) "yes">
    <!ATTLIST machine cloneof CDATA #IMPLIED romof CDATA #IMPLIED>
<!ELEMENT description (#PCDATA)>
<!ELEMENT year (#PCDATA)>
<!ELEMENT manufacturer (#PCDATA)>
<!ELEMENT rom EMPTY>
    <!ATTLIST rom name CDATA #REQUIRED size CDATA #REQUIRED crc CDATA #IMPLIED region CDATA #IMPLIED>
<!ELEMENT chip EMPTY>
    <!ATTLIST chip name CDATA #REQUIRED type (cpu|audio) #REQUIRED clock CDATA #IMPLIED>
<!ELEMENT display EMPTY>
    <!ATTLIST display tag CDATA #IMPLIED type (raster|vector|lcd|svg|unknown) #REQUIRED rotate (0|90|180|270) #IMPLIED>
    <!ATTLIST display width CDATA #IMPLIED height CDATA #IMPLIED refresh CDATA #REQUIRED>
<!ELEMENT sound EMPTY>
    <!ATTLIST sound channels CDATA #REQUIRED>
<!ELEMENT input (control*)>
    <!ATTLIST input players CDATA #REQUIRED coins CDATA #IMPLIED>
<!ELEMENT control EMPTY>
    <!ATTLIST control type CDATA #REQUIRED player CDATA #IMPLIED buttons CDATA #IMPLIED ways CDATA #IMPLIED>
<!ELEMENT driver EMPTY>
    <!ATTLIST driver status (good|imperfect|preliminary) #REQUIRED>
]>

<mame build="0.0 (demonstration cabinet)" debug="no" mameconfig="10">
)xml";

std::string escaped(std::string_view text) {
    std::string result;
    for (char letter : text) {
        switch (letter) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result += letter;
        }
    }
    return result;
}

std::string attribute(std::string_view key, std::string_view value) {
    return value.empty() ? "" : " " + std::string(key) + "=\"" + escaped(value) + "\"";
}

std::string attribute(std::string_view key, int value) {
    return attribute(key, std::to_string(value));
}

std::string element(std::string_view key, std::string_view text) {
    std::string name(key);
    return text.empty() ? "" : "\t\t<" + name + ">" + escaped(text) + "</" + name + ">\n";
}

std::string machineHead(const DemoGame& game) {
    constexpr std::string_view yes = "yes";
    constexpr std::string_view unstated;
    std::string result = "\t<machine" + attribute("name", game.name) + attribute("sourcefile", "demo.cpp");
    result += attribute("isbios", game.kind == DemoKind::bios ? yes : unstated);
    result += attribute("isdevice", game.kind == DemoKind::device ? yes : unstated);
    result += attribute("ismechanical", game.kind == DemoKind::mechanical ? yes : unstated);
    bool runnable = game.kind != DemoKind::device && game.kind != DemoKind::notRunnable;
    result += attribute("runnable", runnable ? unstated : "no");
    return result + attribute("cloneof", game.cloneOf) + attribute("romof", game.romOf) + ">\n";
}

// Two invented files and two chips; the checksum of each file is computed from its name.
std::string innards(const DemoGame& game) {
    std::uint32_t sum = 2166136261u;
    for (char letter : game.name) {
        sum = (sum ^ static_cast<unsigned char>(letter)) * 16777619u;
    }
    std::string result;
    for (const char* region : {"maincpu", "gfx1"}) {
        char checksum[9];
        std::snprintf(checksum, sizeof checksum, "%08x", sum);
        sum *= 16777619u;
        result += "\t\t<rom" + attribute("name", std::string(game.name) + "." + region) +
                  attribute("size", 8192) + attribute("crc", checksum) + attribute("region", region) + "/>\n";
    }
    result += "\t\t<chip" + attribute("type", "cpu") + attribute("name", "Zembo Z8") +
              attribute("clock", 4000000) + "/>\n";
    result += "\t\t<chip" + attribute("type", "audio") + attribute("name", "Humdinger HD-2") + "/>\n";
    return result;
}

std::string displayElement(const DemoDisplay& display) {
    if (display.type.empty()) {
        return "";
    }
    std::string result = "\t\t<display" + attribute("tag", "screen") + attribute("type", display.type) +
                         attribute("rotate", display.rotate);
    if (display.width > 0) {
        result += attribute("width", display.width) + attribute("height", display.height);
    }
    return result + attribute("refresh", "60.000000") + "/>\n";
}

std::string inputElement(const DemoControl& control) {
    std::string result = "\t\t<input" + attribute("players", control.players);
    if (control.coins > 0) {
        result += attribute("coins", control.coins);
    }
    if (control.type.empty()) {
        return result + "/>\n";
    }
    result += ">\n";
    for (int player = 1; player <= control.players; ++player) {
        result += "\t\t\t<control" + attribute("type", control.type);
        if (control.players > 1) {
            result += attribute("player", player);
        }
        if (control.buttons > 0) {
            result += attribute("buttons", control.buttons);
        }
        result += attribute("ways", control.ways) + "/>\n";
    }
    return result + "\t\t</input>\n";
}

std::string machine(const DemoGame& game) {
    std::string result = machineHead(game);
    result += element("description", game.description) + element("year", game.year) +
              element("manufacturer", game.manufacturer);
    result += innards(game);
    if (game.kind != DemoKind::device) {
        result += displayElement(game.display) + "\t\t<sound" + attribute("channels", 1) + "/>\n";
        result += inputElement(game.control) + "\t\t<driver" + attribute("status", "good") + "/>\n";
    }
    return result + "\t</machine>\n";
}

} // namespace

bool writeGameListXml(std::FILE* out) {
    std::string text(documentHead);
    for (const DemoGame& game : demoGames()) {
        text += machine(game);
    }
    text += "</mame>\n";
    bool written = std::fwrite(text.data(), 1, text.size(), out) == text.size();
    return std::fflush(out) == 0 && written;
}
