// SPDX-License-Identifier: GPL-3.0-or-later
// A player of tracks and movies: a libmpv core that opens one file after another. Used by the media windows.
// No call but waitForSize waits for the core. Pictures are drawn into a surface of the caller. The player
// reads no configuration, runs no script and opens nothing but the given file.
#pragma once

#include "platform/drawing/surface.h"
#include "platform/media/mpv_library.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class MediaPlayer {
public:
    // Null when no core can be created. mpvLibraryState must be ready.
    static std::unique_ptr<MediaPlayer> create();
    ~MediaPlayer();
    MediaPlayer(const MediaPlayer&) = delete;
    MediaPlayer& operator=(const MediaPlayer&) = delete;

    // Opens a file, which replaces the current one, paused at its start. The path must be absolute.
    void open(const std::string& path);

    // Disables the video of the current file, so that only its sound is played.
    void dropPicture();

    // Closes the file and frees what it holds; the core stays idle.
    void stop();

    void setRepeating(bool repeating);

    // Pausing closes the file, so that it holds no sound device and decodes nothing; resuming opens it again
    // at the same position.
    void setPaused(bool paused);

    // Handles the core's events. To be called often, even when there is nothing to play.
    void update();

    // Calls update until the size is known, the file has failed or the time is over.
    void waitForSize(int milliseconds);

    bool failed() const { return state_ == State::failed; }

    // The movie's display size is known; 0 x 0 for a file without a picture.
    bool hasSize() const { return state_ == State::sized; }
    int width() const { return width_; }
    int height() const { return height_; }

    // Draws the current picture, turned clockwise by the rotation (0, 90, -90 or 180 degrees) and fitted into
    // the surface, when a new one is due or with `again`. Returns whether it has drawn.
    bool render(Surface& surface, int rotation, bool again);

private:
    enum class State { idle, opening, started, sized, failed };

    MediaPlayer() = default;
    bool start();
    bool pictureIsDue();
    bool pictureIsEmpty();
    void skipPicture();
    bool renderPixels(std::uint32_t* pixels, int width, int height);
    void load(const std::string& start);
    void unload();
    void closeForPause();
    void checkSoundOutput();
    void reconnectSound(std::string_view output);
    void command(const char* const* words, std::uint64_t number);
    void setProperty(const char* name, const char* value);
    void handle(const mpv_event& event);
    void handleReply(const mpv_event& event);
    void handleProperty(const mpv_event& event);
    void handleCurrentProperty(const mpv_event_property& property);
    void reject();

    mpv_handle* core_ = nullptr;
    mpv_render_context* renderer_ = nullptr;
    std::atomic<bool> pictureDue_ = false; // set by a thread of the core
    State state_ = State::idle;
    std::uint64_t number_ = 0; // counts the files, to recognise events about an earlier one
    std::int64_t entry_ = 0;   // the core's playlist entry of the file, 0 while unknown
    bool current_ = false;     // the core's events are about this file
    std::int64_t width_ = 0;
    std::int64_t height_ = 0;
    bool paused_ = true;
    bool soundOnly_ = false;
    std::string path_;
    std::vector<std::uint32_t> upright_;                   // the picture before a quarter turn
    std::optional<double> pausePosition_;                  // of the last pause, in seconds from the start
    std::chrono::steady_clock::time_point lastSoundCheck_; // when the sound output was last queried
};
