// The settings: one process-wide record that loadSettings fills from the ini file at the start, that
// everybody reads, and of which saveSettings writes the 24 keys of the menu and the selection back at the
// end. A field that is written after loading names its writers. What each field means, its default and its
// key stand in setting_table.cpp. The options of single games are no part of this.
#pragma once

#include "catalogue/selection.h"
#include "platform/types.h"

#include <cstdint>

enum MenuTypeChoice : std::int32_t { menuTypeListView = 1, menuTypeImageBrowser = 2 };

enum PreviewPicturesChoice : std::int32_t {
    previewCabinets = 0,
    previewScreenShots = 1,
    previewFlyers = 2,
    previewTitles = 3,
    previewMarquees = 4,
};

enum SortByChoice : std::int32_t { sortByName = 0, sortByYear = 1, sortByManufacturer = 2 };

// Flags are 0 or 1. Texts are owned and come from malloc, so that whoever changes one frees the old and puts
// a malloc'ed one in its place; only the sounds may be null. Nothing else is checked: a number may be
// whatever the file says.
struct Settings {
    std::int32_t allowMenu;
    std::int32_t useJoystick;
    std::int32_t useMameInfoDat; // loadGameInfo sets it to 0 when the file cannot be opened
    std::int32_t invertPlayer2Screen;
    std::int32_t scrollBorderPct;
    char* selectedGame;

    char* mameExe;
    char* mameInfoPath;
    char* romsDir;
    char* snapshotDir;
    char* titleDir;
    char* flyerDir;
    char* marqueeDir;
    char* cabinetDir;
    char* attractDir;
    char* ambienceFile;

    std::int32_t orientation; // the rotation in force: 0, 90, -90 or 180 degrees clockwise; turnToPlayer and
                              // the options menu change it
    std::int32_t baseOrientation;  // the configured rotation, which is the one that is saved; set by WinMain
                                   // and the options menu
    std::int32_t menuType;         // MenuTypeChoice; changed by the options menu
    std::int32_t previewPictures;  // PreviewPicturesChoice; changed by the Picture cycle and the options menu
    std::int32_t previewModeWidth; // pixels, as the two below; drawImageBrowser sets width and height
    std::int32_t previewModeHeight;
    std::int32_t previewModeSpacer;
    std::int32_t previewFontSize;

    char* fontFace;        // changed by the options menu, as the size and menuFontSize
    std::int32_t fontSize; // points
    COLORREF fontColor;
    COLORREF backgroundColor;
    COLORREF highlightForeColor;
    COLORREF highlightBackColor;
    std::int32_t menuFontSize;
    COLORREF previewFontColor;
    COLORREF previewBackgroundColor;
    COLORREF previewHighlightForeColor;
    COLORREF previewHighlightBackColor;

    std::int32_t sortBy; // SortByChoice; changed by the Sort cycle
    std::int32_t ambienceWhilePlaying;

    std::int32_t displayMissingRoms; // the filters down to maxCoins are changed by the options menu
    std::int32_t displayVertical;
    std::int32_t displayHorizontal;
    std::int32_t displayClones;
    std::int32_t displayNeoGeo;
    std::int32_t displayNonNeoGeo;
    std::int32_t displayVector;
    std::int32_t displayRaster;
    std::int16_t minPlayers; // the six ranges are inclusive
    std::int16_t maxPlayers;
    std::int16_t minButtons;
    std::int16_t maxButtons;
    std::int16_t minCoins;
    std::int16_t maxCoins;
    std::int16_t controllerTypes; // mask of GameControl

    std::int32_t keySelectUp; // the 16 keys are virtual-key codes; 0 never reads as pressed
    std::int32_t keySelectDown;
    std::int32_t keySelectPageUp;
    std::int32_t keySelectPageDown;
    std::int32_t keyStartGame;
    std::int32_t keyShowMenu;
    std::int32_t keyExit;
    std::int32_t keyGameInfo;
    std::int32_t keyP2SelectUp;
    std::int32_t keyP2SelectDown;
    std::int32_t keyP2SelectPageUp;
    std::int32_t keyP2SelectPageDown;
    std::int32_t keyP2StartGame;
    std::int32_t keyP2ShowMenu;
    std::int32_t keyP2Exit;
    std::int32_t keyP2GameInfo;

    std::int32_t joySelectUp; // the 8 joystick codes are those of joyPressed
    std::int32_t joySelectDown;
    std::int32_t joySelectPageUp;
    std::int32_t joySelectPageDown;
    std::int32_t joyStartGame;
    std::int32_t joyShowMenu;
    std::int32_t joyExit;
    std::int32_t joyGameInfo;

    char* soundStartup; // null is silence, as for the four below
    char* soundShutdown;
    char* soundStartGame;
    char* soundSelect;
    char* soundError;

    std::int32_t showStatusBar; // changed by the options menu, as font and size below
    char* statusBarFontFace;
    std::int32_t statusBarFontSize;
    COLORREF statusBarForeColor;
    COLORREF statusBarBackColor;
};

extern Settings settings;

// The ini file: the tail of the command line itself, or a literal. Written once by WinMain.
extern const char* iniPath;

// Fills every field but baseOrientation from the file at iniPath. What the file does not give gets its
// default; a file that is missing or cannot be read is no failure. Called once.
void loadSettings();

// Writes the keys that the menu can change, and the name of the selected game unless it is null: that key
// then keeps what it has in the file. A write that fails changes nothing and is not noticed.
void saveSettings(const char* selectedName);

// Releases the texts. Called once, at the end.
void freeSettings();
