// libmpv, loaded when a track or movie is expected or opened: with the hundred libraries that it needs, it
// would add 80 ms and 45 MiB to every start. Used by the media windows and players only. A thread does the
// loading, since a cold disk takes seconds.
#pragma once

#include <mpv/client.h>
#include <mpv/render.h>

// The functions of the library that the player calls, under their own names less the prefix.
struct MpvLibrary {
    decltype(&mpv_create) create;
    decltype(&mpv_initialize) initialize;
    decltype(&mpv_terminate_destroy) terminateDestroy;
    decltype(&mpv_set_option_string) setOptionString;
    decltype(&mpv_command_async) commandAsync;
    decltype(&mpv_set_property_async) setPropertyAsync;
    decltype(&mpv_get_property_async) getPropertyAsync;
    decltype(&mpv_wait_event) waitEvent;
    decltype(&mpv_render_context_create) renderContextCreate;
    decltype(&mpv_render_context_set_update_callback) renderContextSetUpdateCallback;
    decltype(&mpv_render_context_update) renderContextUpdate;
    decltype(&mpv_render_context_get_info) renderContextGetInfo;
    decltype(&mpv_render_context_render) renderContextRender;
    decltype(&mpv_render_context_free) renderContextFree;
};

enum class MpvState { loading, ready, absent };

// Starts the loading at the first call, and never waits.
MpvState mpvLibraryState();

// Waits for the end of the loading, at most so many milliseconds.
void mpvLibraryWait(int milliseconds);

// The library; only when it is ready.
const MpvLibrary& mpvLibrary();
