// The process-wide state that several subsystems share. Each
// variable says who writes it; everybody else only reads. State
// that one subsystem keeps to itself stands in that subsystem.
#pragma once

#include "platform/types.h"
#include "state/game_record.h"

// Written once by WinMain. iniPath is the tail of the command line itself, or a literal.
extern const char* iniPath;
extern HINSTANCE appInstance;
extern HWND mainWindow;

// Written by the main window's handlers, null before: the window's context, the frame buffer and the page of
// tiles.
extern HDC windowDC;
extern HDC backDC;
extern HBITMAP backBitmap;
extern HDC scratchDC;
extern HBITMAP scratchBitmap;

// 1 while a window of this program has the focus. Written by the focus messages of the main window, the menu
// and the scroller.
extern std::int32_t appActive;

// The filtered view: borrowed records in the order of the catalogue, null when empty. Written by filterGames
// and freeGameList.
extern GameRecord** visibleGames;
extern std::int32_t visibleCount;

// The selected game, an index into visibleGames. Written by the start-up and the commands.
extern std::int32_t selectedIndex;

// First line or tile shown. Written by the views; set to 0 at start-up.
extern std::int32_t topIndex;

// 1 when the image browser must rebuild its page. Set by whatever changes what it shows, cleared by the
// browser.
extern std::int32_t browserDirty;

// Height in pixels of the status bar as last drawn. Written by drawStatusBar.
extern std::int32_t statusBarHeight;
