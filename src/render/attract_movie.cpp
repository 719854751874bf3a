// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/attract_movie.h"

#include "app/game_files.h"
#include "app/media_window.h"
#include "app/window_state.h"
#include "config/settings.h"
#include "platform/media.h"
#include "platform/messages.h"
#include "platform/window.h"

#include <string>

HWND movieWindow = nullptr;

namespace {

std::string moviePath(const char* stem) {
    return std::string(settings.attractDir) + "\\" + stem + ".avi";
}

// Returns the path of the movie, or an empty string when there is none.
std::string findMovie(const GameRecord& game) {
    for (const char* stem : {game.name, game.cloneOf}) {
        if (staysInFolder(stem)) {
            std::string path = moviePath(stem);
            if (fileExists(path.c_str())) {
                return path;
            }
        }
    }
    return {};
}

// Whether the frame has a picture instead of a movie because the player is being loaded.
bool isMovieAwaited = false;

// Returns whether there is a movie and the player is loaded. It is then open.
bool openMovie(const GameRecord& game) {
    const std::string path = findMovie(game);
    isMovieAwaited = !path.empty() && !mediaReady();
    if (path.empty() || isMovieAwaited) {
        return false;
    }
    movieWindow = openMediaWindow(path.c_str());
    return true;
}

RECT naturalSize() {
    RECT natural{};
    SendMessageA(movieWindow, MCIWNDM_GET_DEST, 0, reinterpret_cast<LPARAM>(&natural));
    return natural;
}

int startMovie() {
    SendMessageA(movieWindow, MCI_PLAY, 0, 0);
    return playRepeatedly(movieWindow);
}

// Never enlarges. The height is only considered for a movie that is wider than the area.
double fitScale(double width, double height, double areaWidth, double areaHeight) {
    if (width <= areaWidth) {
        return 1;
    }
    const double scale = areaWidth / width;
    return height * scale > areaHeight ? areaHeight / height : scale;
}

void placeMovie(RECT* area) {
    const RECT natural = naturalSize();
    const double areaWidth = area->right - area->left;
    const double areaHeight = area->bottom - area->top;
    double width = natural.right - natural.left;
    double height = natural.bottom - natural.top;
    const double scale = fitScale(width, height, areaWidth, areaHeight);
    width *= scale;
    height *= scale;
    area->left = static_cast<LONG>(area->left + (areaWidth - width) * 0.5);
    area->top = static_cast<LONG>(area->top + (areaHeight - height) * 0.5);
    SetWindowPos(movieWindow, nullptr, area->left, area->top, static_cast<int>(width),
                 static_cast<int>(height), 0);
}

} // namespace

int playAttractMovie(const GameRecord* game, RECT* area) {
    if (!openMovie(*game)) {
        return 0;
    }
    placeMovie(area);
    return startMovie();
}

int playTurnedMovie(const GameRecord* game, const RECT& place) {
    if (!openMovie(*game)) {
        return 0;
    }
    const std::string rotation = "setvideo rotation to " + std::to_string(settings.orientation);
    SendMessageA(movieWindow, MCIWNDM_SENDSTRINGA, 0, reinterpret_cast<LPARAM>(rotation.c_str()));
    naturalSize(); // waits until the file is open, so that an unplayable one is known
    SetWindowPos(movieWindow, nullptr, place.left + frameLeft(), place.top, place.right - place.left,
                 place.bottom - place.top, 0);
    return startMovie();
}

void closeAttractMovie() {
    if (movieWindow) {
        SendMessageA(movieWindow, WM_CLOSE, 0, 0);
        movieWindow = nullptr;
    }
}

int awaitedMovieIsReady() {
    if (!isMovieAwaited) {
        return 0;
    }
    mediaPrepare();
    isMovieAwaited = !mediaReady();
    return isMovieAwaited ? 0 : 1;
}
