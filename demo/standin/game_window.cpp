// SPDX-License-Identifier: GPL-3.0-or-later
#include "standin/game_window.h"

#include "standin/caption.h"
#include "standin/scene.h"

#include <SDL.h>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fontconfig/fontconfig.h>
#include <memory>
#include <string>

namespace {

constexpr int frameMilliseconds = 33;

struct SurfaceDeleter {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
struct WindowEnd {
    void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
};

// Shuts down SDL's video and frees the caches of cairo and fontconfig.
struct VideoSession {
    ~VideoSession() {
        cairo_debug_reset_static_data();
        FcFini();
        SDL_Quit();
    }
};

// State changed by the keys.
struct Play {
    double playerX = 0;
    double playerY = 0;
    double flashUntil = -1; // seconds
    int score = 0;
    bool over = false;
    bool terminated = false;
};

bool openVideo() {
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        return false;
    }
    const char* driver = SDL_GetCurrentVideoDriver();
    bool seen = driver && std::strcmp(driver, "dummy") != 0 && std::strcmp(driver, "offscreen") != 0;
    // A plain copy is faster than OpenGL without a graphics card, and as fast with one.
    if (seen && std::strcmp(driver, "x11") == 0) {
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    }
    if (!seen) {
        SDL_Quit();
    }
    return seen;
}

void handleEvent(const SDL_Event& event, double seconds, bool verbose, Play& play) {
    if (event.type == SDL_QUIT) {
        play.over = play.terminated = true;
    } else if (event.type == SDL_KEYDOWN && event.key.repeat == 0) {
        SDL_Keycode key = event.key.keysym.sym;
        bool arrow = key == SDLK_LEFT || key == SDLK_RIGHT || key == SDLK_UP || key == SDLK_DOWN;
        play.over = play.over || key == SDLK_ESCAPE;
        if (verbose) {
            std::printf("key %s\n", SDL_GetKeyName(key));
            std::fflush(stdout);
        }
        if (!arrow) {
            play.flashUntil = seconds + 0.25;
            play.score += 150;
        }
    }
}

// Held arrow keys move the player, from side to side in a second.
void movePlayer(Play& play, double elapsed) {
    const Uint8* keys = SDL_GetKeyboardState(nullptr);
    double reach = elapsed * 2;
    play.playerX += reach * (keys[SDL_SCANCODE_RIGHT] - keys[SDL_SCANCODE_LEFT]);
    play.playerY += reach * (keys[SDL_SCANCODE_DOWN] - keys[SDL_SCANCODE_UP]);
    play.playerX = std::clamp(play.playerX, -1.0, 1.0);
    play.playerY = std::clamp(play.playerY, -1.0, 1.0);
}

// The part of the screen that the game's display covers: 4:3, or 3:4 when it is rotated.
SDL_Rect tubeArea(const DemoGame& game, int width, int height) {
    int across = game.display.portrait() ? 3 : 4;
    int down = 7 - across;
    int tubeWidth = std::min(width, height * across / down);
    int tubeHeight = std::min(height, width * down / across);
    return {(width - tubeWidth) / 2, (height - tubeHeight) / 2, tubeWidth, tubeHeight};
}

class GameScreen {
public:
    explicit GameScreen(const DemoGame& shownGame) : game_(shownGame) {
        SDL_Rect bounds{0, 0, 640, 480};
        SDL_GetDisplayBounds(0, &bounds);
        std::string title(game_.description);
        window_.reset(SDL_CreateWindow(title.c_str(), bounds.x, bounds.y, bounds.w, bounds.h,
                                       SDL_WINDOW_FULLSCREEN_DESKTOP | SDL_WINDOW_BORDERLESS));
        if (window_) {
            SDL_ShowCursor(SDL_DISABLE);
        }
    }

    bool open() const { return window_ != nullptr; }

    // SDL creates a new window surface after each change of size.
    void show(double seconds, const Play& play) {
        SDL_Surface* target = SDL_GetWindowSurface(window_.get());
        if (!target) {
            return;
        }
        if (!frame_ || frame_->w != target->w || frame_->h != target->h) {
            frame_.reset(SDL_CreateRGBSurfaceWithFormat(0, target->w, target->h, 32, SDL_PIXELFORMAT_RGB888));
            if (!frame_) {
                return;
            }
            tube_ = tubeArea(game_, frame_->w, frame_->h);
            caption_.emplace(game_, tube_.w, tube_.h);
        }
        compose(seconds, play);
        SDL_BlitSurface(frame_.get(), nullptr, target, nullptr);
        SDL_UpdateWindowSurface(window_.get());
    }

private:
    void compose(double seconds, const Play& play) {
        cairo_surface_t* surface =
            cairo_image_surface_create_for_data(static_cast<unsigned char*>(frame_->pixels),
                                                CAIRO_FORMAT_RGB24, frame_->w, frame_->h, frame_->pitch);
        cairo_t* context = cairo_create(surface);
        cairo_rectangle(context, tube_.x, tube_.y, tube_.w, tube_.h);
        cairo_clip(context);
        cairo_translate(context, tube_.x, tube_.y);
        drawScene(context, game_, {seconds, play.playerX, play.playerY}, tube_.w, tube_.h);
        if (seconds < play.flashUntil) {
            cairo_set_source_rgba(context, 1, 1, 1, 0.55);
            cairo_paint(context);
        }
        caption_->draw(context, seconds, play.score);
        cairo_destroy(context);
        cairo_surface_destroy(surface);
    }

    const DemoGame& game_;
    std::unique_ptr<SDL_Window, WindowEnd> window_;
    std::unique_ptr<SDL_Surface, SurfaceDeleter> frame_;
    SDL_Rect tube_{};
    std::optional<Caption> caption_;
};

} // namespace

GameEnd playInWindow(const DemoGame& game, const StandinOptions& options) {
    if (!openVideo()) {
        return GameEnd::noDisplay;
    }
    VideoSession session;
    GameScreen screen(game);
    if (!screen.open()) {
        return GameEnd::noDisplay;
    }
    Play play;
    Uint64 start = SDL_GetTicks64();
    double seconds = 0;
    while (!play.over && !(options.seconds && seconds >= *options.seconds)) {
        screen.show(seconds, play);
        SDL_Event event;
        Uint64 frameEnd = start + static_cast<Uint64>(seconds * 1000) + frameMilliseconds;
        while (!play.over && SDL_GetTicks64() < frameEnd) {
            if (SDL_WaitEventTimeout(
                    &event, static_cast<int>(frameEnd - std::min(frameEnd, SDL_GetTicks64()))) != 0) {
                handleEvent(event, seconds, options.verbose, play);
            }
        }
        double now = static_cast<double>(SDL_GetTicks64() - start) / 1000;
        movePlayer(play, now - seconds);
        seconds = now;
    }
    return play.terminated ? GameEnd::terminated : GameEnd::finished;
}
