// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/setting_table.h"

#include <cstring>

namespace {

constexpr ChoiceWord orientationWords[] = {{"Normal", 0}, {"ROR", 90}, {"ROL", -90}, {"Inverted", 180}};

constexpr ChoiceWord menuTypeWords[] = {{"ListView", menuTypeListView},
                                        {"ImageBrowser", menuTypeImageBrowser}};

constexpr ChoiceWord previewPicturesWords[] = {{"Cabinets", previewCabinets},
                                               {"ScreenShots", previewScreenShots},
                                               {"Flyers", previewFlyers},
                                               {"Titles", previewTitles},
                                               {"Marquees", previewMarquees}};

constexpr ChoiceWord sortByWords[] = {
    {"Name", sortByName}, {"Year", sortByYear}, {"Manufacturer", sortByManufacturer}};

constexpr ChoiceWord layoutWords[] = {{"Fixed", layoutFixed}, {"Turned", layoutTurned}};

constexpr SettingRange daySeconds = {0, 86400};

constexpr char extrasSection[] = "Extras";

// Rows of that section. None is saved.
constexpr SettingRow extraRow(const char* key, SettingKind kind, SettingField field, const char* defaultText,
                              const char* description, SettingRange range) {
    return {extrasSection, key, kind, field, defaultText, notSaved, description, {}, range};
}

constexpr SettingRow extraNumber(const char* key, std::int32_t Settings::*field, const char* defaultText,
                                 SettingRange range, const char* description) {
    return extraRow(key, SettingKind::number, field, defaultText, description, range);
}

constexpr SettingRow extraFlag(const char* key, std::int32_t Settings::*field, const char* description) {
    return extraRow(key, SettingKind::flag, field, "0", description, {0, 1});
}

constexpr SettingRow extraKey(const char* key, std::int32_t Settings::*field, const char* code,
                              const char* description) {
    return extraRow(key, SettingKind::keyCode, field, code, description, {0, 254});
}

constexpr SettingRow extraJoystick(const char* key, std::int32_t Settings::*field, const char* code,
                                   const char* description) {
    return extraRow(key, SettingKind::joystickCode, field, code, description, {0, 512});
}

constexpr SettingRow extraText(const char* key, char* Settings::*field, const char* description) {
    return extraRow(key, SettingKind::optionalText, field, nullptr, description, {});
}

} // namespace

bool isExtra(const SettingRow& row) {
    return std::strcmp(row.section, extrasSection) == 0;
}

const std::array<SettingRow, 113> settingTable = {{
    {"Settings", "AllowMenu", SettingKind::flag, &Settings::allowMenu, "1", notSaved,
     "Allows the options menu to be opened."},
    {"Settings", "UseJoystick", SettingKind::flag, &Settings::useJoystick, "1", notSaved,
     "Uses the first joystick in addition to the keys."},
    {"Settings", "UseMameInfoDat", SettingKind::flag, &Settings::useMameInfoDat, "1", notSaved,
     "Reads the game information file, so that its texts can be shown."},
    {"Settings", "InvertPlayer2Screen", SettingKind::flag, &Settings::invertPlayer2Screen, "0", notSaved,
     "Turns the screen upside down for player 2, depending on who used the controls last."},
    {"Settings", "ScrollBorderPct", SettingKind::number, &Settings::scrollBorderPct, "20", notSaved,
     "Margin on each side of the information window, in percent of the screen."},
    {"System", "SelectedGame", SettingKind::text, &Settings::selectedGame, "0", 3,
     "Short name of the game that is selected when the program starts."},
    {"Settings", "Mame.exe", SettingKind::text, &Settings::mameExe, "c:\\fix_the_ini_file.exe", notSaved,
     "The emulator, with options if needed. With a drive letter or an absolute path it runs in its own "
     "folder, otherwise in the folder of the front end."},
    {"Settings", "Mameinfo.dat", SettingKind::text, &Settings::mameInfoPath, ".\\mameinfo.dat", notSaved,
     "The game information file."},
    {"Settings", "Roms.dir", SettingKind::text, &Settings::romsDir, "c:\\roms", notSaved,
     "Folder with one ROM zip file per game."},
    {"Settings", "Snapshot.dir", SettingKind::text, &Settings::snapshotDir, "c:\\snap", notSaved,
     "Folder with one screen shot per game, a PNG file."},
    {"Settings", "Title.dir", SettingKind::text, &Settings::titleDir, "c:\\titles", notSaved,
     "Folder with pictures of the title screens, PNG files."},
    {"Settings", "Flyer.dir", SettingKind::text, &Settings::flyerDir, "c:\\flyers", notSaved,
     "Folder with pictures of the flyers, PNG files."},
    {"Settings", "Marquee.dir", SettingKind::text, &Settings::marqueeDir, "c:\\marquees", notSaved,
     "Folder with pictures of the marquees, PNG files."},
    {"Settings", "Cabinet.dir", SettingKind::text, &Settings::cabinetDir, "c:\\cabinets", notSaved,
     "Folder with pictures of the cabinets, PNG files."},
    {"Settings", "Attract.dir", SettingKind::text, &Settings::attractDir, "c:\\attracts", notSaved,
     "Folder with one attract movie per game, an AVI file."},
    {"Settings", "AmbienceFile", SettingKind::text, &Settings::ambienceFile, "c:\\arcade.mp3", notSaved,
     "Sound track that plays in the background."},
    {"Settings", "Orientation", SettingKind::choice, &Settings::orientation, "Normal", 24,
     "Rotation of the screen: none, 90 degrees to the right, 90 degrees to the left, upside down.",
     orientationWords},
    {"Settings", "MenuType", SettingKind::choice, &Settings::menuType, "ListView", 1,
     "How the games are shown: as a list of titles or as a column of marquees.", menuTypeWords},
    {"Settings", "PreviewPictures", SettingKind::choice, &Settings::previewPictures, "ScreenShots", 2,
     "Kind of picture shown for the selected game.", previewPicturesWords},
    {"Settings", "PreviewModeWidth", SettingKind::number, &Settings::previewModeWidth, "184", notSaved,
     "Width of a marquee tile in pixels, until the image browser calculates its own."},
    {"Settings", "PreviewModeHeight", SettingKind::number, &Settings::previewModeHeight, "244", notSaved,
     "Height of a marquee tile in pixels, until the image browser calculates its own."},
    {"Settings", "PreviewModeSpacer", SettingKind::number, &Settings::previewModeSpacer, "20", notSaved,
     "Gap around the marquee tiles in pixels."},
    {"Settings", "PreviewFontSize", SettingKind::number, &Settings::previewFontSize, "8", notSaved,
     "Not used; accepted for compatibility with older files."},
    {"Settings", "Fontface", SettingKind::text, &Settings::fontFace, "Arial", 4,
     "Font of the list, the messages and the game information."},
    {"Settings", "Fontsize", SettingKind::number, &Settings::fontSize, "18", 5,
     "Size of that font in points."},
    {"Settings", "Fontcolor", SettingKind::colour, &Settings::fontColor, "0x000000", notSaved,
     "Colour of that font, also in the menu."},
    {"Settings", "Backgroundcolor", SettingKind::colour, &Settings::backgroundColor, "0xFFFFFF", notSaved,
     "Background of the list, the menu, the messages and the game information."},
    {"Settings", "HighlightForecolor", SettingKind::colour, &Settings::highlightForeColor, "0x000000",
     notSaved, "Not used; accepted for compatibility with older files."},
    {"Settings", "HighlightBackcolor", SettingKind::colour, &Settings::highlightBackColor, "0xFFFFFF",
     notSaved, "Colour of the bar behind the selected title."},
    {"Settings", "MenuFontSize", SettingKind::number, &Settings::menuFontSize, "12", 6,
     "Font size of the options menu in points."},
    {"Settings", "PreviewFontcolor", SettingKind::colour, &Settings::previewFontColor, "0x000000", notSaved,
     "Not used; accepted for compatibility with older files."},
    {"Settings", "PreviewBackgroundcolor", SettingKind::colour, &Settings::previewBackgroundColor, "0xFFFFFF",
     notSaved, "Background of the image browser."},
    {"Settings", "PreviewHighlightForecolor", SettingKind::colour, &Settings::previewHighlightForeColor,
     "0x000000", notSaved, "Not used; accepted for compatibility with older files."},
    {"Settings", "PreviewHighlightBackcolor", SettingKind::colour, &Settings::previewHighlightBackColor,
     "0xFFFFFF", notSaved, "Colour of the ring around the selected marquee."},
    {"RomOptions", "SortBy", SettingKind::choice, &Settings::sortBy, "Name", notSaved,
     "Sort order of the games when the program starts.", sortByWords},
    {"Settings", "AmbienceWhilePlaying", SettingKind::flag, &Settings::ambienceWhilePlaying, "0", notSaved,
     "Keeps the sound track playing while a game runs."},
    {"RomOptions", "DisplayMissingRoms", SettingKind::flag, &Settings::displayMissingRoms, "0", 9,
     "Shows games whose ROM zip file is missing."},
    {"RomOptions", "DisplayVertical", SettingKind::flag, &Settings::displayVertical, "1", 10,
     "Shows games with a vertical screen."},
    {"RomOptions", "DisplayHorizontal", SettingKind::flag, &Settings::displayHorizontal, "1", 11,
     "Shows games with a horizontal screen."},
    {"RomOptions", "DisplayClones", SettingKind::flag, &Settings::displayClones, "1", 12, "Shows clones."},
    {"RomOptions", "DisplayNeoGeo", SettingKind::flag, &Settings::displayNeoGeo, "1", 13,
     "Shows Neo-Geo games."},
    {"RomOptions", "DisplayNonNeoGeo", SettingKind::flag, &Settings::displayNonNeoGeo, "1", 14,
     "Shows games of systems other than the Neo-Geo."},
    {"RomOptions", "DisplayVector", SettingKind::flag, &Settings::displayVector, "1", 15,
     "Shows games with a vector screen."},
    {"RomOptions", "DisplayRaster", SettingKind::flag, &Settings::displayRaster, "1", 16,
     "Shows games with a raster screen."},
    {"RomOptions", "MinPlayers", SettingKind::shortNumber, &Settings::minPlayers, "0", 17,
     "Hides games for fewer players."},
    {"RomOptions", "MaxPlayers", SettingKind::shortNumber, &Settings::maxPlayers, "8", 18,
     "Hides games for more players."},
    {"RomOptions", "MinButtons", SettingKind::shortNumber, &Settings::minButtons, "0", 19,
     "Hides games with fewer buttons."},
    {"RomOptions", "MaxButtons", SettingKind::shortNumber, &Settings::maxButtons, "8", 20,
     "Hides games with more buttons."},
    {"RomOptions", "MinCoins", SettingKind::shortNumber, &Settings::minCoins, "0", 21,
     "Hides games with fewer coin slots."},
    {"RomOptions", "MaxCoins", SettingKind::shortNumber, &Settings::maxCoins, "8", 22,
     "Hides games with more coin slots."},
    {"RomOptions", "ControllerTypes", SettingKind::shortNumber, &Settings::controllerTypes, "127", notSaved,
     "Controls of the games that are shown, as a sum: 1 dial, 2 double joystick, 4 four-way joystick or any "
     "other control, 8 eight-way joystick, 16 paddle, 32 stick, 64 trackball."},
    {"Keymappings", "SelectUp", SettingKind::keyCode, &Settings::keySelectUp, "38", notSaved,
     "Player 1: one game up."},
    {"Keymappings", "SelectDown", SettingKind::keyCode, &Settings::keySelectDown, "40", notSaved,
     "Player 1: one game down."},
    {"Keymappings", "SelectPageUp", SettingKind::keyCode, &Settings::keySelectPageUp, "37", notSaved,
     "Player 1: one page up."},
    {"Keymappings", "SelectPageDown", SettingKind::keyCode, &Settings::keySelectPageDown, "39", notSaved,
     "Player 1: one page down."},
    {"Keymappings", "StartGame", SettingKind::keyCode, &Settings::keyStartGame, "49", notSaved,
     "Player 1: start the game."},
    {"Keymappings", "ShowMenu", SettingKind::keyCode, &Settings::keyShowMenu, "50", notSaved,
     "Player 1: open the options menu."},
    {"Keymappings", "Exit", SettingKind::keyCode, &Settings::keyExit, "27", notSaved,
     "Player 1: end the program, or close the menu or the game information."},
    {"Keymappings", "GameInfo", SettingKind::keyCode, &Settings::keyGameInfo, "17", notSaved,
     "Player 1: show or close the game information."},
    {"Keymappings", "P2SelectUp", SettingKind::keyCode, &Settings::keyP2SelectUp, "82", notSaved,
     "Player 2: one game up."},
    {"Keymappings", "P2SelectDown", SettingKind::keyCode, &Settings::keyP2SelectDown, "70", notSaved,
     "Player 2: one game down."},
    {"Keymappings", "P2SelectPageUp", SettingKind::keyCode, &Settings::keyP2SelectPageUp, "68", notSaved,
     "Player 2: one page up."},
    {"Keymappings", "P2SelectPageDown", SettingKind::keyCode, &Settings::keyP2SelectPageDown, "71", notSaved,
     "Player 2: one page down."},
    {"Keymappings", "P2StartGame", SettingKind::keyCode, &Settings::keyP2StartGame, "65", notSaved,
     "Player 2: start the game."},
    {"Keymappings", "P2ShowMenu", SettingKind::keyCode, &Settings::keyP2ShowMenu, "83", notSaved,
     "Player 2: open the options menu."},
    {"Keymappings", "P2Exit", SettingKind::keyCode, &Settings::keyP2Exit, "87", notSaved,
     "Player 2: end the program, or close the menu or the game information."},
    {"Keymappings", "P2GameInfo", SettingKind::keyCode, &Settings::keyP2GameInfo, "81", notSaved,
     "Player 2: show or close the game information."},
    {"JoystickMappings", "SelectUp", SettingKind::joystickCode, &Settings::joySelectUp, "8", notSaved,
     "One game up."},
    {"JoystickMappings", "SelectDown", SettingKind::joystickCode, &Settings::joySelectDown, "4", notSaved,
     "One game down."},
    {"JoystickMappings", "SelectPageUp", SettingKind::joystickCode, &Settings::joySelectPageUp, "2", notSaved,
     "One page up."},
    {"JoystickMappings", "SelectPageDown", SettingKind::joystickCode, &Settings::joySelectPageDown, "1",
     notSaved, "One page down."},
    {"JoystickMappings", "StartGame", SettingKind::joystickCode, &Settings::joyStartGame, "16", notSaved,
     "Start the game."},
    {"JoystickMappings", "ShowMenu", SettingKind::joystickCode, &Settings::joyShowMenu, "32", notSaved,
     "Open the options menu."},
    {"JoystickMappings", "Exit", SettingKind::joystickCode, &Settings::joyExit, "128", notSaved,
     "End the program, or close the menu or the game information."},
    {"JoystickMappings", "GameInfo", SettingKind::joystickCode, &Settings::joyGameInfo, "64", notSaved,
     "Show or close the game information."},
    {"Sounds", "Startup", SettingKind::optionalText, &Settings::soundStartup, nullptr, notSaved,
     "Wave file played when the program has started."},
    {"Sounds", "Shutdown", SettingKind::optionalText, &Settings::soundShutdown, nullptr, notSaved,
     "Wave file played before the program ends."},
    {"Sounds", "StartGame", SettingKind::optionalText, &Settings::soundStartGame, nullptr, notSaved,
     "Wave file played before a game starts."},
    {"Sounds", "Select", SettingKind::optionalText, &Settings::soundSelect, nullptr, notSaved,
     "Wave file played when the selection changes."},
    {"Sounds", "Error", SettingKind::optionalText, &Settings::soundError, nullptr, notSaved,
     "Wave file played when the selection cannot move or a game has failed."},
    {"Settings", "ShowStatusBar", SettingKind::flag, &Settings::showStatusBar, "1", 23,
     "Shows the status bar."},
    {"Settings", "StatusBarFontFace", SettingKind::text, &Settings::statusBarFontFace, "Arial", 7,
     "Font of the status bar."},
    {"Settings", "StatusBarFontSize", SettingKind::number, &Settings::statusBarFontSize, "12", 8,
     "Size of that font in points."},
    {"Settings", "StatusBarForeColor", SettingKind::colour, &Settings::statusBarForeColor, "0x000000",
     notSaved, "Text colour of the status bar."},
    {"Settings", "StatusBarBackColor", SettingKind::colour, &Settings::statusBarBackColor, "0xFFFFFF",
     notSaved, "Background of the status bar."},
    {extrasSection, "Layout", SettingKind::choice, &Settings::layout, "Fixed", notSaved,
     "How the views are laid out on a turned screen. Fixed: titles, pictures and movies keep their places in "
     "the frame. Turned: they are placed as on an upright screen, for the player who looks at the turned "
     "one.",
     layoutWords},
    extraNumber("RepeatDelay", &Settings::repeatDelay, "0", {0, 10000},
                "Milliseconds between the first and the second step of a held control in the list, the menu "
                "and the game information; after that ten steps a second."),
    extraFlag("InstantResponse", &Settings::instantResponse,
              "Executes a command as soon as its control is pressed, not at the next tenth of a second."),
    extraFlag("JoystickHotplug", &Settings::joystickHotplug,
              "Uses a joystick that is plugged in after the start."),
    extraKey("JumpBackKey", &Settings::keyJumpBack, "32", "Key: 100 games up."),
    extraJoystick("JumpBackJoystick", &Settings::joyJumpBack, "32", "Joystick: 100 games up."),
    extraKey("JumpForwardKey", &Settings::keyJumpForward, "88", "Key: 100 games down."),
    extraJoystick("JumpForwardJoystick", &Settings::joyJumpForward, "4", "Joystick: 100 games down."),
    extraKey("RandomKey", &Settings::keyRandom, "18", "Key: a random game."),
    extraJoystick("RandomJoystick", &Settings::joyRandom, "2", "Joystick: a random game."),
    extraKey("SortKey", &Settings::keySort, "90", "Key: next sort order."),
    extraJoystick("SortJoystick", &Settings::joySort, "16", "Joystick: next sort order."),
    extraKey("PictureKey", &Settings::keyPicture, "16", "Key: next kind of picture."),
    extraJoystick("PictureJoystick", &Settings::joyPicture, "128", "Joystick: next kind of picture."),
    extraKey("NextLetterKey", &Settings::keyNextLetter, "0",
             "Key: first game of the next letter; sorted by year or manufacturer, of the next of those."),
    extraJoystick(
        "NextLetterJoystick", &Settings::joyNextLetter, "0",
        "Joystick: first game of the next letter; sorted by year or manufacturer, of the next of those."),
    extraKey("PreviousLetterKey", &Settings::keyPreviousLetter, "0", "Key: likewise, of the previous one."),
    extraJoystick("PreviousLetterJoystick", &Settings::joyPreviousLetter, "0",
                  "Joystick: likewise, of the previous one."),
    extraKey("FavouriteKey", &Settings::keyFavourite, "0",
             "Key: mark the selected game as a favourite, or remove its mark."),
    extraJoystick("FavouriteJoystick", &Settings::joyFavourite, "0",
                  "Joystick: mark the selected game as a favourite, or remove its mark."),
    extraKey("FavouritesOnlyKey", &Settings::keyFavouritesOnly, "0",
             "Key: show the favourites only, or all games again."),
    extraJoystick("FavouritesOnlyJoystick", &Settings::joyFavouritesOnly, "0",
                  "Joystick: show the favourites only, or all games again."),
    extraNumber("SaveOnChange", &Settings::saveOnChange, "0", daySeconds,
                "Seconds from a change of a saved setting or of the selected game to the writing of the ini "
                "file; it is then also written before each game. 0: only at the end of the program."),
    extraFlag("RefreshList", &Settings::refreshList,
              "Makes the game list anew at the start when it is missing, empty or cut off, or when the "
              "emulator has changed."),
    extraNumber("IdleSeconds", &Settings::idleSeconds, "0", daySeconds,
                "Seconds without any control after which attract play shows random games, until a control is "
                "touched. 0: never."),
    extraNumber("IdleStep", &Settings::idleStep, "15", {1, 86400},
                "Seconds for which attract play shows each game."),
    extraText("ExitCommand", &Settings::exitCommand,
              "Program, with its arguments, that is started after the Exit control has ended the front end."),
    extraText("History.xml", &Settings::historyXml,
              "History file in XML; its text is shown after the game information."),
}};
