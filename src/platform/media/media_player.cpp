// In this order: the options of a core and its limits, making and ending it, opening, pausing and closing a
// file, the events of the core and its answers, and the pictures.
#include "platform/media/media_player.h"

#include "platform/base/alsa_messages.h"

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
    // Nothing of the user's, and nothing but the file.
    {"config", "no"},
    {"load-scripts", "no"},
    {"osc", "no"},
    {"ytdl", "no"},
    {"load-stats-overlay", "no"},
    {"load-auto-profiles", "no"},
    {"terminal", "no"},
    {"input-default-bindings", "no"},
    {"demuxer", "lavf"},
    {"access-references", "no"},
    {"autoload-files", "no"},
    {"resume-playback", "no"},
    {"sid", "no"},
    {"osd-level", "0"},
    // Pictures come from the render calls; covers of tracks are no movies.
    {"vo", "libmpv"},
    {"hwdec", "no"},
    {"audio-display", "no"},
    {"video-timing-offset", "0"},
    // A machine without sound shows movies all the same.
    {"audio-fallback-to-null", "yes"},
    {"audio-client-name", "kestravox"},
    // A short movie is kept whole, so that its repetition reads nothing.
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

// The containers that are opened, by the names of libavformat: none that names other files.
constexpr std::string_view containers = "aac,ac3,aiff,asf,avi,caf,dv,flac,flv,gif,ivf,m4v,matroska,mov,mp3,"
                                        "mpeg,mpegts,mpegvideo,nsv,ogg,rm,wav,w64";

// A decoder may hold about 30 pictures: 16 for reference, others out of order, between threads and on their
// way. They must fit into 190 MB.
constexpr std::int64_t mostPixels = 2'800'000;       // of a picture that may still be decoded
constexpr std::int64_t mostPictureBytes = 6'300'000; // of one whose form is known

// Marks a question for the picture that only a file without one answers with an error.
constexpr std::uint64_t pictureExpected = std::uint64_t{1} << 63;

// Seconds between two looks for a picture. The core stands still for 200 ms over one that nobody takes, also
// while it opens or closes a file.
constexpr double pictureLook = 0.001;

// A track whose sound server went away plays to nobody; it looks for a new one that often.
constexpr auto soundLookInterval = std::chrono::seconds(5);

// The kinds of sound output that are tried: those of SDL in its order, so that wave sounds and players meet
// at one server, or at ALSA's own mixer. Whoever keeps the wave sounds away from the machine's sound server,
// as tests do, keeps the players away as well.
const char* soundOutputs() {
    const char* driver = std::getenv("SDL_AUDIODRIVER");
    const std::string_view name = driver ? driver : "";
    return name == "dummy" || name == "disk" ? "null" : "pulse,alsa,null";
}

// The value of a key in a map; null without it.
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

// Whether there is a track of pictures other than the cover of a sound track.
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
    // The list holds commas, so its length stands before it.
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
    restPlace_.reset();
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
        rest();
    } else if (state_ == State::idle && restPlace_) {
        load(std::to_string(*restPlace_));
    }
}

// The file is closed, to be opened again where it was. The core can also take the sound alone from an open
// file, but after the way back from there, a track that had been read to its end stays silent.
void MediaPlayer::rest() {
    if (state_ == State::failed || state_ == State::idle) {
        return;
    }
    if (!restPlace_) {
        restPlace_ = 0;
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
    askForSound();
    for (;;) {
        const mpv_event* event = mpvLibrary().waitEvent(core_, 0);
        if (event->event_id == MPV_EVENT_NONE) {
            return;
        }
        handle(*event);
    }
}

// Only for tracks: a new output would make a movie stumble, and the next movie finds it by itself.
void MediaPlayer::askForSound() {
    const auto now = std::chrono::steady_clock::now();
    if (state_ == State::sized && width_ == 0 && !paused_ && now - soundLook_ >= soundLookInterval) {
        soundLook_ = now;
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
        handle(*mpvLibrary().waitEvent(core_, pictureLook));
        skipPicture();
    }
}

void MediaPlayer::handle(const mpv_event& event) {
    const MpvLibrary& mpv = mpvLibrary();
    switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
        takeReply(event);
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
            mpv.getPropertyAsync(core_, number_ | pictureExpected, "dwidth", MPV_FORMAT_INT64);
        }
        break;
    case MPV_EVENT_GET_PROPERTY_REPLY:
        takeProperty(event);
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

// The answer to loadfile names the entry; that of a former file does not count.
void MediaPlayer::takeReply(const mpv_event& event) {
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

// Gives back what the file holds.
void MediaPlayer::refuse() {
    unload();
    state_ = State::failed;
}

void MediaPlayer::findSoundServer(std::string_view output) {
    if (!paused_ && output == "null" && std::string_view(soundOutputs()) != "null") {
        const char* const words[] = {"ao-reload", nullptr};
        command(words, 0);
    }
}

void MediaPlayer::takeProperty(const mpv_event& event) {
    const bool current = current_ && (event.reply_userdata & ~pictureExpected) == number_;
    if (event.error < 0) {
        // Playback has begun without a picture: none of the file could be decoded.
        if (current && event.reply_userdata != number_ && state_ == State::started) {
            refuse();
        }
        return;
    }
    const auto& property = *static_cast<mpv_event_property*>(event.data);
    if (property.format == MPV_FORMAT_DOUBLE) {
        // The place of a rest, whose file is closed by now. While the end of one round is still to be heard,
        // the core counts the next one from below zero; and it stands still for good when it starts at the
        // very end.
        if (restPlace_) {
            restPlace_ = std::max(*static_cast<double*>(property.data), 0.0);
        }
    } else if (current) {
        takeCurrentProperty(property);
    }
}

void MediaPlayer::takeCurrentProperty(const mpv_event_property& property) {
    const std::string_view name = property.name;
    const std::string_view text =
        property.format == MPV_FORMAT_STRING ? *static_cast<char**>(property.data) : "";
    if (name == "current-ao") {
        findSoundServer(text);
    } else if (name == "vid" && soundOnly_) {
        width_ = height_ = 0;
    } else if (name == "vid" && text == "no") {
        mpvLibrary().getPropertyAsync(core_, number_, "track-list", MPV_FORMAT_NODE);
    } else if (name == "track-list") {
        if (hasMovie(*static_cast<mpv_node*>(property.data))) {
            refuse(); // its pictures cannot be decoded
            return;
        }
        width_ = height_ = 0;
    } else if (name == "video-params") {
        const auto& picture = *static_cast<mpv_node*>(property.data);
        const std::int64_t bits = numberIn(picture, "average-bpp") * numberIn(picture, "w");
        if (bits / 8 * numberIn(picture, "h") > mostPictureBytes) {
            refuse();
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

// The core also asks for its empty screen to be drawn, between two files.
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

bool MediaPlayer::render(Surface& surface, bool again) {
    if (state_ != State::sized || !surface.pixels) {
        skipPicture();
        return false;
    }
    if (!again && (!pictureIsDue() || pictureIsEmpty())) {
        return false;
    }
    int size[] = {surface.width, surface.height};
    char format[] = "bgr0";
    std::size_t stride = static_cast<std::size_t>(surface.width) * sizeof(std::uint32_t);
    int block = 0;
    mpv_render_param parameters[] = {{MPV_RENDER_PARAM_SW_SIZE, size},
                                     {MPV_RENDER_PARAM_SW_FORMAT, format},
                                     {MPV_RENDER_PARAM_SW_STRIDE, &stride},
                                     {MPV_RENDER_PARAM_SW_POINTER, surface.pixels.get()},
                                     {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &block},
                                     {MPV_RENDER_PARAM_INVALID, nullptr}};
    if (mpvLibrary().renderContextRender(renderer_, parameters) < 0) {
        return false;
    }
    surface.changed = true;
    return true;
}
