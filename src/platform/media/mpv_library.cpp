// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/media/mpv_library.h"

#include "platform/base/library_pages.h"

#include <dlfcn.h>

#include <chrono>
#include <cstdlib>
#include <future>

namespace {

constexpr char libraryName[] = "libmpv.so.2";

// The largest block of memory in bytes that a decoder may allocate: decoding starts before the size of the
// pictures can be checked. Detecting the format needs 10 MiB.
constexpr std::size_t largestBlock = std::size_t{12} << 20;

template <typename Function> bool resolve(void* handle, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(handle, name));
    return function != nullptr;
}

// av_max_alloc is part of libavutil, which libmpv depends on.
void limitBlocks(void* handle) {
    void (*setLargest)(std::size_t) = nullptr;
    if (resolve(handle, "av_max_alloc", setLargest)) {
        setLargest(largestBlock);
    }
}

bool loadLibrary(MpvLibrary& library) {
    const int othersCount = libraryCount();
    void* const handle = dlopen(libraryName, RTLD_LAZY | RTLD_LOCAL);
    dropLibraryPages(othersCount);
    if (handle) {
        limitBlocks(handle);
    }
    return handle && resolve(handle, "mpv_create", library.create) &&
           resolve(handle, "mpv_initialize", library.initialize) &&
           resolve(handle, "mpv_terminate_destroy", library.terminateDestroy) &&
           resolve(handle, "mpv_set_option_string", library.setOptionString) &&
           resolve(handle, "mpv_command_async", library.commandAsync) &&
           resolve(handle, "mpv_set_property_async", library.setPropertyAsync) &&
           resolve(handle, "mpv_get_property_async", library.getPropertyAsync) &&
           resolve(handle, "mpv_wait_event", library.waitEvent) &&
           resolve(handle, "mpv_render_context_create", library.renderContextCreate) &&
           resolve(handle, "mpv_render_context_set_update_callback",
                   library.renderContextSetUpdateCallback) &&
           resolve(handle, "mpv_render_context_update", library.renderContextUpdate) &&
           resolve(handle, "mpv_render_context_get_info", library.renderContextGetInfo) &&
           resolve(handle, "mpv_render_context_render", library.renderContextRender) &&
           resolve(handle, "mpv_render_context_free", library.renderContextFree);
}

struct Loading {
    MpvLibrary library{};
    std::shared_future<bool> result;
};

// Never destroyed, because players may be destroyed after all objects with static storage duration.
Loading& loading() {
    static auto* const instance = new Loading;
    return *instance;
}

} // namespace

void mpvLibraryLoad() {
    Loading& current = loading();
    if (!current.result.valid()) {
        current.result = std::async(std::launch::async, loadLibrary, std::ref(current.library)).share();
        // The process must not exit while the library is being loaded.
        std::atexit([] { loading().result.wait(); });
    }
}

MpvState mpvLibraryState() {
    const std::shared_future<bool>& result = loading().result;
    if (!result.valid() || result.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        return MpvState::loading;
    }
    return result.get() ? MpvState::ready : MpvState::absent;
}

void mpvLibraryWait(int milliseconds) {
    mpvLibraryLoad();
    loading().result.wait_for(std::chrono::milliseconds(milliseconds));
}

const MpvLibrary& mpvLibrary() {
    return loading().library;
}
