#include "render/attract_movie.h"

#include "app/game_files.h"
#include "app/media_window.h"
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

// Never enlarges. The height is only considered for a movie that is wider than the area.
double fitScale(double width, double height, double areaWidth, double areaHeight) {
    if (width <= areaWidth) {
        return 1;
    }
    const double scale = areaWidth / width;
    return height * scale > areaHeight ? areaHeight / height : scale;
}

void placeMovie(RECT* area) {
    RECT natural{};
    SendMessageA(movieWindow, MCIWNDM_GET_DEST, 0, reinterpret_cast<LPARAM>(&natural));
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
    const std::string path = findMovie(*game);
    if (path.empty()) {
        return 0;
    }
    movieWindow = openMediaWindow(path.c_str());
    placeMovie(area);
    SendMessageA(movieWindow, MCI_PLAY, 0, 0);
    return playRepeatedly(movieWindow);
}

void closeAttractMovie() {
    if (movieWindow) {
        SendMessageA(movieWindow, WM_CLOSE, 0, 0);
        movieWindow = nullptr;
    }
}
