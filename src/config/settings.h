// SPDX-License-Identifier: GPL-3.0-or-later
// The settings: one process-wide record, which every module reads. settings_file.h fills it from the ini file
// at program start and saves part of it at the end. Fields that change after loading name the modules that
// write them. The meaning, key and default of each field are in setting_table.cpp. The options of single
// games (section Mameoptions) are not part of it.
#pragma once

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

enum LayoutChoice : std::int32_t { layoutFixed = 0, layoutTurned = 1 };

// Flags are 0 or 1. Texts are owned and allocated with malloc: code that changes one frees the old text and
// stores another allocated with malloc. Only the sounds, exitCommand
// and historyXml may be null. Numbers are not range-checked on loading, except those of the extras.
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

    std::int32_t orientation;      // the current rotation: 0, 90, -90 or 180 degrees clockwise; changed by
                                   // turnToPlayer and the options menu
    std::int32_t baseOrientation;  // the configured rotation, the one that is saved; set by WinMain and the
                                   // options menu
    std::int32_t menuType;         // MenuTypeChoice; changed by the options menu
    std::int32_t previewPictures;  // PreviewPicturesChoice; changed by the Picture cycle and the options menu
    std::int32_t previewModeWidth; // in pixels, like the two below; set by the image browsers of both layouts
    std::int32_t previewModeHeight;
    std::int32_t previewModeSpacer;
    std::int32_t previewFontSize;

    char* fontFace;        // changed by the options menu, like fontSize and menuFontSize
    std::int32_t fontSize; // in points
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
    std::int16_t controllerTypes; // bit mask of GameControl values

    std::int32_t keySelectUp; // the 16 keys are virtual-key codes; 0 is never pressed
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

    char* soundStartup; // null: no sound; also for the four below
    char* soundShutdown;
    char* soundStartGame;
    char* soundSelect;
    char* soundError;

    std::int32_t showStatusBar; // changed by the options menu, like font and size below
    char* statusBarFontFace;
    std::int32_t statusBarFontSize;
    COLORREF statusBarForeColor;
    COLORREF statusBarBackColor;

    // The extras; all off by default.
    std::int32_t layout;      // LayoutChoice
    std::int32_t repeatDelay; // milliseconds
    std::int32_t instantResponse;
    std::int32_t joystickHotplug;

    std::int32_t keyJumpBack; // codes as above
    std::int32_t keyJumpForward;
    std::int32_t keyRandom;
    std::int32_t keySort;
    std::int32_t keyPicture;
    std::int32_t keyNextLetter;
    std::int32_t keyPreviousLetter;
    std::int32_t keyFavourite;
    std::int32_t keyFavouritesOnly;

    std::int32_t joyJumpBack;
    std::int32_t joyJumpForward;
    std::int32_t joyRandom;
    std::int32_t joySort;
    std::int32_t joyPicture;
    std::int32_t joyNextLetter;
    std::int32_t joyPreviousLetter;
    std::int32_t joyFavourite;
    std::int32_t joyFavouritesOnly;

    std::int32_t saveOnChange; // seconds; 0: off
    std::int32_t refreshList;
    std::int32_t idleSeconds; // 0: off
    std::int32_t idleStep;
    char* exitCommand;
    char* historyXml;

    std::int32_t favouritesOnly; // hides the other games; neither loaded nor saved; changed by the favourites
                                 // and the options menu
};

extern Settings settings;

// Whether a control for the favourites is set. Without one there are no marks.
bool hasFavouriteControls();
