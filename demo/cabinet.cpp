// SPDX-License-Identifier: GPL-3.0-or-later
#include "cabinet.h"

#include "game_info.h"
#include "games.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace {

namespace fs = std::filesystem;

// Colours for a dark room: ivory on midnight blue, a crimson highlight, amber on plum in the status bar. The
// numbers are 0xBBGGRR, red in the low byte.
constexpr std::string_view settings = R"(; The demonstration cabinet. Delete this file to have it made anew.
[Settings]
Mame.exe=demo-mame
Roms.dir=roms
Snapshot.dir=snap
Title.dir=titles
Flyer.dir=flyers
Marquee.dir=marquees
Cabinet.dir=cabinets
Attract.dir=attracts
AmbienceFile=sounds/ambience.wav
Mameinfo.dat=mameinfo.dat
Orientation=Normal
MenuType=ListView
PreviewPictures=ScreenShots
Fontface=Arial
Fontsize=24
MenuFontSize=20
; ivory letters
Fontcolor=0xC8EEFF
; midnight
Backgroundcolor=0x220C0E
; crimson bar
HighlightBackcolor=0x5414BC
HighlightForecolor=0xFFFFFF
PreviewFontcolor=0xC8EEFF
PreviewBackgroundcolor=0x220C0E
PreviewHighlightForecolor=0xFFFFFF
PreviewHighlightBackcolor=0x5414BC
ShowStatusBar=1
StatusBarFontFace=Arial
StatusBarFontSize=18
; amber on plum
StatusBarForeColor=0x4CC2FF
StatusBarBackColor=0x481A34

[System]
SelectedGame=barnacle

[Sounds]
Startup=sounds/startup.wav
Shutdown=sounds/shutdown.wav
StartGame=sounds/start.wav
Select=sounds/select.wav
Error=sounds/error.wav

[RomOptions]
SortBy=Name
DisplayMissingRoms=0

[Extras]
Layout=Turned
RepeatDelay=250
InstantResponse=1
)";

constexpr std::string_view optionsHead = R"(
; What the emulator is told besides the name of a game. A clone without a line of its own has that of its parent.
[Mameoptions]
)";

// The end record of a zip without entries: the shortest valid zip file.
std::string emptyZip() {
    return std::string("PK\5\6", 4) + std::string(18, '\0');
}

bool layOutRoms(const fs::path& roms, std::string& problem) {
    std::error_code error;
    for (const DemoGame& game : demoGames()) {
        fs::path zip = roms / (std::string(game.name) + ".zip");
        if (game.romPresent && !fs::exists(zip, error) && !writeTextFile(zip.string(), emptyZip(), problem)) {
            return false;
        }
        if (!game.romPresent) {
            fs::remove(zip, error);
        }
    }
    return true;
}

} // namespace

bool layOutCabinet(const std::string& folder, std::string& problem) {
    fs::path cabinet(folder);
    std::error_code error;
    fs::create_directories(cabinet / "roms", error);
    if (error) {
        problem = "cannot make the folder " + (cabinet / "roms").string() + ": " + error.message();
        return false;
    }
    fs::path ini = cabinet / "kestravox.ini";
    if (!fs::exists(fs::symlink_status(ini, error)) &&
        !writeTextFile(ini.string(), cabinetSettings(), problem)) {
        return false;
    }
    if (!writeTextFile((cabinet / "mameinfo.dat").string(), demoGameInfo(), problem) ||
        !writeTextFile((cabinet / "history.xml").string(), demoHistory(), problem)) {
        return false;
    }
    if (!layOutRoms(cabinet / "roms", problem)) {
        return false;
    }
    // The front end would trust an old list; without one it asks the stand-in for the games of this build.
    fs::remove(cabinet / "listinfo.dat", error);
    fs::remove(cabinet / "listinfo.xml", error);
    return true;
}

std::string cabinetSettings(const std::vector<SettingChange>& changes) {
    std::string text(settings);
    for (const SettingChange& change : changes) {
        std::string line = change.key + "=" + change.value + "\n";
        std::size_t start = text.find("\n" + change.key + "=");
        if (start == std::string::npos) {
            const std::string heading = "[" + change.section + "]\n";
            text.insert(text.find(heading) + heading.size(), line);
        } else {
            text.replace(start + 1, text.find('\n', start + 1) - start, line);
        }
    }
    text += optionsHead;
    for (const DemoGame& game : demoGames()) {
        if (!game.options.empty()) {
            text += std::string(game.name) + "=" + std::string(game.options) + "\n";
        }
    }
    return text;
}

bool writeTextFile(const std::string& path, const std::string& content, std::string& problem) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << content;
    file.close();
    if (!file) {
        problem = "cannot write " + path;
    }
    return static_cast<bool>(file);
}
