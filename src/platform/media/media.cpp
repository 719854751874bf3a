// SPDX-License-Identifier: GPL-3.0-or-later
// In this order: the windows and the pool of players, opening and placing a movie, the update of all windows
// while the thread waits, and the messages.
#include "platform/media.h"

#include "platform/drawing/turned_copy.h"
#include "platform/files/file_io.h"
#include "platform/files/paths.h"
#include "platform/media/media_player.h"
#include "platform/messages.h"
#include "platform/window.h"
#include "platform/window/compositor.h"
#include "platform/window/window_record.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <future>
#include <optional>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace {

constexpr LPCSTR mediaClass = "MCIWndClass";

// Opening a movie may delay a tick by 40 ms; the other 15 ms are for drawing.
constexpr int longestWait = 25; // milliseconds

// The first movie also creates a core and, without mediaPrepare, loads the library. Without this longer wait,
// the picture would show no movie, or one of a wrong size, until the next move.
constexpr int longestFirstWait = 1000;

constexpr std::chrono::milliseconds longestShutdown(1000);

// 4:3, the shape of most movies, and larger than any area.
constexpr RECT unknownSize = {0, 0, 24000, 18000};

struct MediaWindow {
    HWND handle = nullptr;
    std::string path; // empty when there is no playable file
    std::unique_ptr<MediaPlayer> player;
    bool failed = false;
    bool opened = false;  // `path` has been passed to the player
    bool playing = false; // as requested by the messages so far
    bool paused = false;  // by MCI_PAUSE; false before the first MCI_PLAY
    bool track = false;   // the window has no area, so only the sound is played
    bool repeating = false;
    bool guessed = false;        // placed before its size was known
    std::optional<int> rotation; // in degrees clockwise; if set, the window is fitted into its place
    bool resized = false;        // the picture has to be redrawn in the new size
    RECT place{};
};

std::vector<std::unique_ptr<MediaWindow>> mediaWindows;

// Players that are kept for reuse: creating a core costs more than opening a file.
std::vector<std::unique_ptr<MediaPlayer>> idlePlayers;

MediaWindow* findMedia(HWND handle) {
    const auto found = std::find_if(mediaWindows.begin(), mediaWindows.end(),
                                    [&](const auto& media) { return media->handle == handle; });
    return found != mediaWindows.end() ? found->get() : nullptr;
}

// The file's absolute path; empty when it is not a readable plain file.
std::string playablePath(LPCSTR file) {
    const std::string path = nativePath(file ? file : "");
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(path, error);
    return !error && openPlainFile(path.c_str()).isOpen() ? full.string() : std::string();
}

// Runs at exit. A sound server that does not respond would block the destruction of a player, so the players
// are destroyed on a thread. If that takes too long, the process exits without further destructors, since the
// libraries must not be unloaded while a player exists.
void shutDownPlayers(int exitCode, void*) {
    for (const auto& media : mediaWindows) {
        idlePlayers.push_back(std::move(media->player));
    }
    mediaWindows.clear();
    std::promise<void> promise;
    const std::future<void> ended = promise.get_future();
    std::thread([players = std::move(idlePlayers), promise = std::move(promise)]() mutable {
        players.clear();
        promise.set_value();
    }).detach();
    if (ended.wait_for(longestShutdown) != std::future_status::ready) {
        std::_Exit(exitCode);
    }
}

std::unique_ptr<MediaPlayer> takePlayer() {
    if (idlePlayers.empty()) {
        static const int registered = on_exit(shutDownPlayers, nullptr);
        static_cast<void>(registered);
        return MediaPlayer::create();
    }
    std::unique_ptr<MediaPlayer> player = std::move(idlePlayers.back());
    idlePlayers.pop_back();
    return player;
}

// Passes the state requested by the messages so far to the player.
void applyRequests(const MediaWindow& media) {
    media.player->setRepeating(media.repeating);
    if (media.track) {
        media.player->dropPicture();
    }
    if (media.playing || media.paused) {
        media.player->setPaused(media.paused);
    }
}

// Assigns a player to the window once the library is loaded.
void openMedia(MediaWindow& media) {
    if (media.opened || media.failed || media.paused) {
        return;
    }
    const MpvState library = media.path.empty() ? MpvState::absent : mpvLibraryState();
    if (library == MpvState::loading) {
        return;
    }
    media.player = library == MpvState::ready ? takePlayer() : nullptr;
    media.failed = !media.player;
    if (media.player) {
        media.opened = true;
        media.player->open(media.path);
        applyRequests(media);
    }
}

void waitForSize(MediaWindow& media) {
    if (media.path.empty()) {
        return;
    }
    using Clock = std::chrono::steady_clock;
    static bool first = true;
    const int limit = std::exchange(first, false) ? longestFirstWait : longestWait;
    const auto end = Clock::now() + std::chrono::milliseconds(limit);
    if (!media.opened) {
        mpvLibraryWait(limit);
    }
    openMedia(media);
    if (media.player) {
        const auto remaining = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        media.player->waitForSize(static_cast<int>(remaining.count()));
    }
}

// Gives the window the proportions of its movie. Enlarges only a movie with a rotation.
void fitIntoPlace(MediaWindow& media) {
    const double placeWidth = media.place.right - media.place.left;
    const double placeHeight = media.place.bottom - media.place.top;
    double width = std::max(media.player->width(), 1);
    double height = std::max(media.player->height(), 1);
    if (swapsSides(media.rotation.value_or(0))) {
        std::swap(width, height);
    }
    double scale = std::min(placeWidth / width, placeHeight / height);
    if (!media.rotation) {
        scale = std::min(scale, 1.0);
    }
    width *= scale;
    height *= scale;
    media.guessed = false;
    MoveWindow(media.handle, static_cast<int>(media.place.left + (placeWidth - width) / 2),
               static_cast<int>(media.place.top + (placeHeight - height) / 2), static_cast<int>(width),
               static_cast<int>(height), FALSE);
}

void updateMedia(MediaWindow& media) {
    openMedia(media);
    if (!media.player) {
        return;
    }
    media.player->update();
    if (media.failed) {
        return;
    }
    Window* window = findWindow(media.handle);
    if (media.player->failed()) {
        media.failed = true;
        if (window->visible) {
            window->visible = false;
            noteScreenChange();
        }
    } else if (media.player->hasSize() && media.guessed) {
        fitIntoPlace(media);
    }
    if (media.player->render(window->client, media.rotation.value_or(0), media.resized && window->visible)) {
        media.resized = false;
        if (!window->visible) {
            ShowWindow(media.handle, SW_SHOW);
        }
    }
}

// A playing track needs no polling for pictures.
bool hasPicturesToCome(const MediaWindow& media) {
    return media.playing && !media.failed &&
           !(media.player && media.player->hasSize() && media.player->width() == 0);
}

bool updateAllMedia() {
    for (const auto& player : idlePlayers) {
        player->update();
    }
    bool moving = false;
    for (const auto& media : mediaWindows) {
        updateMedia(*media);
        moving = moving || hasPicturesToCome(*media);
    }
    return moving;
}

void setPlaying(MediaWindow& media, bool playing) {
    media.playing = playing;
    media.paused = !playing;
    if (media.opened) {
        applyRequests(media);
    } else {
        openMedia(media);
    }
}

LRESULT reportSize(MediaWindow& media, RECT* rect) {
    waitForSize(media);
    const bool known = media.player && media.player->hasSize();
    const bool unplayable = media.failed || (media.player && media.player->failed());
    media.guessed = (!known && !unplayable) || media.rotation;
    *rect = known ? RECT{0, 0, media.player->width(), media.player->height()} : RECT{};
    if (!known && !unplayable) {
        *rect = unknownSize;
    }
    return 0;
}

LRESULT runCommand(MediaWindow& media, std::string_view command) {
    for (const int rotation : {0, 90, -90, 180}) {
        if (command == "setvideo rotation to " + std::to_string(rotation)) {
            media.rotation = rotation;
            media.guessed = true;
            return 0;
        }
    }
    if (command != "play repeat") {
        return 1;
    }
    media.track = findWindow(media.handle)->client.width == 0;
    media.repeating = true;
    setPlaying(media, true);
    if (media.player) {
        media.player->update();
    }
    return media.failed || (media.player && media.player->failed()) ? 1 : 0;
}

void endMedia(HWND handle) {
    MediaWindow* media = findMedia(handle);
    if (media && media->player) {
        media->player->stop();
        idlePlayers.push_back(std::move(media->player));
    }
    std::erase_if(mediaWindows, [&](const auto& other) { return other.get() == media; });
}

LRESULT mediaProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    MediaWindow* media = findMedia(window);
    if (!media) {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    switch (message) {
    case MCI_PLAY:
    case MCI_RESUME:
        setPlaying(*media, true);
        return 0;
    case MCI_PAUSE:
        setPlaying(*media, false);
        return 0;
    case MCIWNDM_SENDSTRINGA:
        return runCommand(*media, reinterpret_cast<LPCSTR>(lParam));
    case MCIWNDM_GET_DEST:
        return reportSize(*media, reinterpret_cast<RECT*>(lParam));
    case WM_SIZE:
        media->resized = true;
        if (media->guessed) {
            media->place = placeInParent(*findWindow(window));
        }
        return 0;
    case WM_DESTROY:
        endMedia(window);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

void registerMediaClass() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = mediaProcedure;
    windowClass.lpszClassName = mediaClass;
    RegisterClassA(&windowClass);
    setPictureSource(updateAllMedia);
}

} // namespace

void mediaPrepare() {
    mpvLibraryLoad();
}

bool mediaReady() {
    return mpvLibraryState() != MpvState::loading;
}

HWND MCIWndCreateA(HWND parent, HINSTANCE instance, DWORD, LPCSTR file) {
    registerMediaClass();
    if (!findWindow(parent)) {
        return nullptr;
    }
    const HWND handle =
        CreateWindowExA(0, mediaClass, nullptr, WS_CHILD, 0, 0, 0, 0, parent, nullptr, instance, nullptr);
    if (!handle) {
        return nullptr;
    }
    auto media = std::make_unique<MediaWindow>();
    media->handle = handle;
    media->path = playablePath(file);
    openMedia(*media);
    mediaWindows.push_back(std::move(media));
    return handle;
}
