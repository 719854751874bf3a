// One player of tracks and movies: a libmpv core that is kept and opens one file after another. Used by the
// media windows. Nothing here waits for the core but waitForSize; pictures are drawn into a surface of the
// caller's. The player reads no configuration, runs no script and opens nothing but the file.
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

class MediaPlayer {
public:
    // Null when no core can be made. The library must be ready.
    static std::unique_ptr<MediaPlayer> create();
    ~MediaPlayer();
    MediaPlayer(const MediaPlayer&) = delete;
    MediaPlayer& operator=(const MediaPlayer&) = delete;

    // Opens a file in place of the former, paused at its start. The path must be absolute.
    void open(const std::string& path);

    // Of the present file, only the sound is wanted.
    void dropPicture();

    // Ends the file and gives back what it holds: the core goes idle.
    void stop();

    void setRepeating(bool repeating);

    // A paused file is not kept open: it holds no sound device and decodes nothing. It goes on where it was.
    void setPaused(bool paused);

    // Takes the news from the core. To be called often, also for a player that has nothing to play.
    void update();

    // update, until the size is known, the file has failed or the time is over.
    void waitForSize(int milliseconds);

    bool failed() const { return state_ == State::failed; }

    // The movie's display size, 0 for a file without a picture, is known.
    bool hasSize() const { return state_ == State::sized; }
    int width() const { return width_; }
    int height() const { return height_; }

    // Draws the next picture, fitted into the surface, when it has come due, or the present one again; tells
    // whether it has.
    bool render(Surface& surface, bool again);

private:
    enum class State { idle, opening, started, sized, failed };

    MediaPlayer() = default;
    bool start();
    bool pictureIsDue();
    bool pictureIsEmpty();
    void skipPicture();
    void load(const std::string& start);
    void unload();
    void rest();
    void askForSound();
    void findSoundServer(std::string_view output);
    void command(const char* const* words, std::uint64_t number);
    void setProperty(const char* name, const char* value);
    void handle(const mpv_event& event);
    void takeReply(const mpv_event& event);
    void takeProperty(const mpv_event& event);
    void takeCurrentProperty(const mpv_event_property& property);
    void refuse();

    mpv_handle* core_ = nullptr;
    mpv_render_context* renderer_ = nullptr;
    std::atomic<bool> pictureDue_ = false; // set by a thread of the core
    State state_ = State::idle;
    std::uint64_t number_ = 0; // counts the files, so that news of a former one is recognised
    std::int64_t entry_ = 0;   // the core's own number of the file, 0 until it has told
    bool current_ = false;     // news of the core is about this file
    std::int64_t width_ = 0;
    std::int64_t height_ = 0;
    bool paused_ = true;
    bool soundOnly_ = false;
    std::string path_;
    std::optional<double> restPlace_;                 // of a pause, in seconds from the start
    std::chrono::steady_clock::time_point soundLook_; // when the sound output was last asked for
};
