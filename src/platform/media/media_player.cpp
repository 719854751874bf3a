// SPDX-License-Identifier: GPL-3.0-or-later
// In this order: the options and limits of a core, its creation and destruction, opening, pausing and closing
// a file, the core's events, and the pictures.
#include "platform/media/media_player.h"

#include "platform/base/alsa_messages.h"
#include "platform/drawing/turned_copy.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string_view>

namespace {

struct Option {
    const char* name;
    const char* value;
};

constexpr Option options[] = {
    // No configuration of the user, and no file but the given one.
    {"config", "no"},
    {"load-scripts", "no"},
    {"osc", "no"},
    {"ytdl", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"load-auto-profiles", "no"},
    {"terminal", "no"},
    {"input-default-bindings", "no"},
    {"demuxer", "lavf"},
    {"access-references", "no"},
    {"autoload-files", "no"},
    {"resume-playback", "no"},
    {"sid", "no"},
    {"osd-level", "0"},
    // Pictures are fetched with the render API; the cover of a track is not a movie.
    {"vo", "libmpv"},
    {"hwdec", "no"},
    {"audio-display", "no"},
    {"video-timing-offset", "0"},
    // Movies also play on a machine without sound.
    {"audio-fallback-to-null", "yes"},
    {"audio-client-name", "kestravox"},
    // A short movie is cached as a whole, so that repeating it reads nothing.
    {"cache", "yes"},
    {"cache-pause", "no"},
    {"demuxer-max-bytes", "8MiB"},
    {"demuxer-max-back-bytes", "8MiB"},
    {"keep-open", "yes"},
    {"pause", "yes"},
    {"vd-lavc-threads", "2"},
    {"sws-scaler", "bilinear"},
    {"sws-fast", "yes"},
};

// The allowed containers by their libavformat names. Formats that can refer to other files are excluded.
constexpr std::string_view containers = "aac,ac3,aiff,asf,avi,caf,dv,flac,flv,gif,ivf,m4v,matroska,mov,mp3,"
                                        "mpeg,mpegts,mpegvideo,nsv,ogg,rm,wav,w64";

// A decoder may hold about 30 pictures (16 reference frames, others being reordered, in its threads or
// queued), which must fit into 190 MB.
constexpr std::int64_t mostPixels = 2'800'000;       // limit of the decoder, per picture
constexpr std::int64_t mostPictureBytes = 6'300'000; // limit once the pixel format is known

// Flag in the user data of a size request. Only a file without a decodable picture answers it with an error.
constexpr std::uint64_t pictureExpectedFlag = std::uint64_t{1} << 63;

// Interval at which waitForSize polls for pictures. The core blocks for 200 ms on a picture that is not
// fetched, also while it opens or closes a file.
constexpr double picturePollSeconds = 0.001;

// After the loss of its sound server, a track plays to the null output. Interval at which a new server is
// tried.
constexpr auto soundCheckInterval = std::chrono::seconds(5);

// The sound outputs to try: SDL's, in SDL's order, so that wave sounds and players use the same server, or
// ALSA's mixer. When SDL_AUDIODRIVER disables the sound of the machine, as in tests, it does so for players
// too.
const char* soundOutputs() {
    const char* driver = std::getenv("SDL_AUDIODRIVER");
    const std::string_view name = driver ? driver : "";
    return name == "dummy" || name == "disk" ? "null" : "pulse,alsa,null";
}

// The value of a key in a map; null when it is missing.
const mpv_node* findIn(const mpv_node& map, std::string_view key) {
    for (int index = 0; map.format == MPV_FORMAT_NODE_MAP && index < map.u.list->num; ++index) {
        if (map.u.list->keys[index] == key) {
            return &map.u.list->values[index];
        }
    }
    return nullptr;
}

std::int64_t numberIn(const mpv_node& map, std::string_view key) {
    const mpv_node* value = findIn(map, key);
    return value && value->format == MPV_FORMAT_INT64 ? value->u.int64 : 0;
}

// Whether there is a video track other than cover art.
bool hasMovie(const mpv_node& tracks) {
    for (int index = 0; tracks.format == MPV_FORMAT_NODE_ARRAY && index < tracks.u.list->num; ++index) {
        const mpv_node* type = findIn(tracks.u.list->values[index], "type");
        const mpv_node* cover = findIn(tracks.u.list->values[index], "albumart");
        if (type && type->format == MPV_FORMAT_STRING && std::string_view(type->u.string) == "video" &&
            !(cover && cover->format == MPV_FORMAT_FLAG && cover->u.flag != 0)) {
            return true;
        }
    }
    return false;
}

} // namespace

std::unique_ptr<MediaPlayer> MediaPlayer::create() {
    std::unique_ptr<MediaPlayer> player(new MediaPlayer);
    return player->start() ? std::move(player) : nullptr;
}

bool MediaPlayer::start() {
    const MpvLibrary& mpv = mpvLibrary();
    core_ = mpv.create();
    if (!core_) {
        return false;
    }
    for (const Option& option : options) {
        mpv.setOptionString(core_, option.name, option.value);
    }
    mpv.setOptionString(core_, "ao", soundOutputs());
    mpv.setOptionString(core_, "vd-lavc-o", ("max_pixels=" + std::to_string(mostPixels)).c_str());
    // Prefixed with its length, because the list contains commas.
    const std::string whitelist =
        "format_whitelist=%" + std::to_string(containers.size()) + "%" + std::string(containers);
    mpv.setOptionString(core_, "demuxer-lavf-o", whitelist.c_str());
    if (mpv.initialize(core_) < 0) {
        return false;
    }
    char software[] = MPV_RENDER_API_TYPE_SW;
    silenceAlsa();
    mpv_render_param parameters[] = {{MPV_RENDER_PARAM_API_TYPE, software},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
    if (mpv.renderContextCreate(&renderer_, core_, parameters) < 0) {
        renderer_ = nullptr;
        return false;
    }
    mpv.renderContextSetUpdateCallback(
        renderer_, [](void* player) { static_cast<MediaPlayer*>(player)->pictureDue_ = true; }, this);
    return true;
}

MediaPlayer::~MediaPlayer() {
    if (renderer_) {
        mpvLibrary().renderContextFree(renderer_);
    }
    if (core_) {
        mpvLibrary().terminateDestroy(core_);
    }
}

void MediaPlayer::command(const char* const* words, std::uint64_t number) {
    mpvLibrary().commandAsync(core_, number, const_cast<const char**>(words));
}

void MediaPlayer::setProperty(const char* name, const char* value) {
    mpvLibrary().setPropertyAsync(core_, 0, name, MPV_FORMAT_STRING, &value);
}

void MediaPlayer::open(const std::string& path) {
    path_ = path;
    paused_ = true;
    soundOnly_ = false;
    pausePosition_.reset();
    setRepeating(false);
    setProperty("pause", "yes");
    setProperty("vid", "auto");
    load("none");
}

void MediaPlayer::load(const std::string& start) {
    ++number_;
    entry_ = 0;
    current_ = false;
    width_ = height_ = -1;
    state_ = State::opening;
    setProperty("start", start.c_str());
    const char* const words[] = {"loadfile", path_.c_str(), nullptr};
    command(words, number_);
}

void MediaPlayer::stop() {
    ++number_;
    unload();
}

void MediaPlayer::unload() {
    current_ = false;
    state_ = State::idle;
    upright_ = {};
    const char* const words[] = {"stop", nullptr};
    command(words, number_);
}

void MediaPlayer::setRepeating(bool repeating) {
    setProperty("loop-file", repeating ? "inf" : "no");
}

void MediaPlayer::dropPicture() {
    soundOnly_ = true;
    setProperty("vid", "no");
}

void MediaPlayer::setPaused(bool paused) {
    paused_ = paused;
    setProperty("pause", paused ? "yes" : "no");
    if (paused) {
        closeForPause();
    } else if (state_ == State::idle && pausePosition_) {
        load(std::to_string(*pausePosition_));
    }
}

// Closes the file; setPaused(false) opens it again at the same position. Disabling only the audio of an open
// file also releases the sound device, but a track that had been read to its end stays silent when the audio
// is enabled again.
void MediaPlayer::closeForPause() {
    if (state_ == State::failed || state_ == State::idle) {
        return;
    }
    if (!pausePosition_) {
        pausePosition_ = 0;
    }
    if (state_ != State::opening) {
        mpvLibrary().getPropertyAsync(core_, number_, "time-pos", MPV_FORMAT_DOUBLE);
    }
    unload();
}

void MediaPlayer::update() {
    if (state_ != State::sized) {
        skipPicture();
    }
    checkSoundOutput();
    for (;;) {
        const mpv_event* event = mpvLibrary().waitEvent(core_, 0);
        if (event->event_id == MPV_EVENT_NONE) {
            return;
        }
        handle(*event);
    }
}

// Only for tracks: a new output would interrupt a movie, and the next movie opens the output anyway.
void MediaPlayer::checkSoundOutput() {
    const auto now = std::chrono::steady_clock::now();
    if (state_ == State::sized && width_ == 0 && !paused_ && now - lastSoundCheck_ >= soundCheckInterval) {
        lastSoundCheck_ = now;
        mpvLibrary().getPropertyAsync(core_, number_, "current-ao", MPV_FORMAT_STRING);
    }
}

void MediaPlayer::waitForSize(int milliseconds) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    while (state_ == State::opening || state_ == State::started) {
        if (Clock::now() >= end) {
            return;
        }
        handle(*mpvLibrary().waitEvent(core_, picturePollSeconds));
        skipPicture();
    }
}

void MediaPlayer::handle(const mpv_event& event) {
    const MpvLibrary& mpv = mpvLibrary();
    switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
        handleReply(event);
        break;
    case MPV_EVENT_START_FILE:
        current_ = entry_ != 0 && static_cast<mpv_event_start_file*>(event.data)->playlist_entry_id == entry_;
        break;
    case MPV_EVENT_FILE_LOADED:
        if (current_) {
            state_ = State::started;
            mpv.getPropertyAsync(core_, number_, "vid", MPV_FORMAT_STRING);
        }
        break;
    case MPV_EVENT_VIDEO_RECONFIG:
        if (current_) {
            mpv.getPropertyAsync(core_, number_, "video-params", MPV_FORMAT_NODE);
            mpv.getPropertyAsync(core_, number_, "dwidth", MPV_FORMAT_INT64);
            mpv.getPropertyAsync(core_, number_, "dheight", MPV_FORMAT_INT64);
        }
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        if (current_ && state_ == State::started) {
            mpv.getPropertyAsync(core_, number_ | pictureExpectedFlag, "dwidth", MPV_FORMAT_INT64);
        }
        break;
    case MPV_EVENT_GET_PROPERTY_REPLY:
        handleProperty(event);
        break;
    case MPV_EVENT_END_FILE:
        if (current_ && static_cast<mpv_event_end_file*>(event.data)->reason == MPV_END_FILE_REASON_ERROR) {
            current_ = false;
            state_ = State::failed;
        }
        break;
    default:
        break;
    }
}

// The reply to loadfile names the playlist entry. Replies about an earlier file are ignored.
void MediaPlayer::handleReply(const mpv_event& event) {
    if (state_ != State::opening || event.reply_userdata != number_) {
        return;
    }
    const mpv_node& result = static_cast<mpv_event_command*>(event.data)->result;
    if (event.error < 0 || result.format != MPV_FORMAT_NODE_MAP) {
        state_ = State::failed;
        return;
    }
    entry_ = numberIn(result, "playlist_entry_id");
}

// Marks the file as unplayable and frees what it holds.
void MediaPlayer::reject() {
    unload();
    state_ = State::failed;
}

void MediaPlayer::reconnectSound(std::string_view output) {
    if (!paused_ && output == "null" && std::string_view(soundOutputs()) != "null") {
        const char* const words[] = {"ao-reload", nullptr};
        command(words, 0);
    }
}

void MediaPlayer::handleProperty(const mpv_event& event) {
    const bool current = current_ && (event.reply_userdata & ~pictureExpectedFlag) == number_;
    if (event.error < 0) {
        // Playback has started without a picture: none could be decoded.
        if (current && event.reply_userdata != number_ && state_ == State::started) {
            reject();
        }
        return;
    }
    const auto& property = *static_cast<mpv_event_property*>(event.data);
    if (property.format == MPV_FORMAT_DOUBLE) {
        // The position at a pause; the file is closed by now. Near the end of a repetition the core may
        // report a position of the next one, counted from below zero, and it does not start again from the
        // very end of a file.
        if (pausePosition_) {
            pausePosition_ = std::max(*static_cast<double*>(property.data), 0.0);
        }
    } else if (current) {
        handleCurrentProperty(property);
    }
}

void MediaPlayer::handleCurrentProperty(const mpv_event_property& property) {
    const std::string_view name = property.name;
    const std::string_view text =
        property.format == MPV_FORMAT_STRING ? *static_cast<char**>(property.data) : "";
    if (name == "current-ao") {
        reconnectSound(text);
    } else if (name == "vid" && soundOnly_) {
        width_ = height_ = 0;
    } else if (name == "vid" && text == "no") {
        mpvLibrary().getPropertyAsync(core_, number_, "track-list", MPV_FORMAT_NODE);
    } else if (name == "track-list") {
        if (hasMovie(*static_cast<mpv_node*>(property.data))) {
            reject(); // no decoder for its video
            return;
        }
        width_ = height_ = 0;
    } else if (name == "video-params") {
        const auto& picture = *static_cast<mpv_node*>(property.data);
        const std::int64_t bits = numberIn(picture, "average-bpp") * numberIn(picture, "w");
        if (bits / 8 * numberIn(picture, "h") > mostPictureBytes) {
            reject();
            return;
        }
    } else if (property.format == MPV_FORMAT_INT64 && !soundOnly_) {
        (name == "dwidth" ? width_ : height_) = *static_cast<std::int64_t*>(property.data);
    }
    if (width_ >= 0 && height_ >= 0) {
        state_ = State::sized;
    }
}

bool MediaPlayer::pictureIsDue() {
    return pictureDue_.exchange(false) &&
           (mpvLibrary().renderContextUpdate(renderer_) & MPV_RENDER_UPDATE_FRAME) != 0;
}

// Between two files the core also requests a redraw of its empty screen.
bool MediaPlayer::pictureIsEmpty() {
    mpv_render_frame_info info{};
    return mpvLibrary().renderContextGetInfo(renderer_, {MPV_RENDER_PARAM_NEXT_FRAME_INFO, &info}) < 0 ||
           (info.flags & MPV_RENDER_FRAME_INFO_PRESENT) == 0;
}

void MediaPlayer::skipPicture() {
    if (pictureIsDue()) {
        int skip = 1;
        int block = 0;
        mpv_render_param parameters[] = {{MPV_RENDER_PARAM_SKIP_RENDERING, &skip},
                                         {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &block},
                                         {MPV_RENDER_PARAM_INVALID, nullptr}};
        mpvLibrary().renderContextRender(renderer_, parameters);
    }
}

bool MediaPlayer::renderPixels(std::uint32_t* pixels, int width, int height) {
    int size[] = {width, height};
    char format[] = "bgr0";
    std::size_t stride = static_cast<std::size_t>(width) * sizeof(std::uint32_t);
    int block = 0;
    mpv_render_param parameters[] = {{MPV_RENDER_PARAM_SW_SIZE, size},
                                     {MPV_RENDER_PARAM_SW_FORMAT, format},
                                     {MPV_RENDER_PARAM_SW_STRIDE, &stride},
                                     {MPV_RENDER_PARAM_SW_POINTER, pixels},
                                     {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &block},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
    return mpvLibrary().renderContextRender(renderer_, parameters) >= 0;
}

bool MediaPlayer::render(Surface& surface, int rotation, bool again) {
    if (state_ != State::sized || !surface.pixels) {
        skipPicture();
        return false;
    }
    if (!again && (!pictureIsDue() || pictureIsEmpty())) {
        return false;
    }
    const bool quarter = swapsSides(rotation);
    if (quarter) {
        upright_.resize(static_cast<std::size_t>(surface.width) * static_cast<std::size_t>(surface.height));
    }
    std::uint32_t* pixels = quarter ? upright_.data() : surface.pixels.get();
    if (!renderPixels(pixels, quarter ? surface.height : surface.width,
                      quarter ? surface.width : surface.height)) {
        return false;
    }
    if (quarter) {
        copyTurned({pixels, surface.height, surface.width, surface.height}, rotation, surface, 0, 0);
    } else if (rotation == 180) {
        std::reverse(pixels, pixels + static_cast<std::ptrdiff_t>(surface.width) * surface.height);
    }
    surface.changed = true;
    return true;
}
