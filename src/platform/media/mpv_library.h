// SPDX-License-Identifier: GPL-3.0-or-later
// libmpv, loaded at run time when a track or movie is expected or opened: with its hundred dependencies it
// would add 80 ms and 45 MiB to every start. Used by the media windows and players only. It is loaded on a
// separate thread, because that takes seconds from a cold disk.
#pragma once

#include <mpv/client.h>
#include <mpv/render.h>

// The library's functions that the player calls, under their own names without the prefix.
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

// `loading` also before loading has started.
enum class MpvState { loading, ready, absent };

// Starts loading. Does nothing after the first call.
void mpvLibraryLoad();

// Returns the state without waiting.
MpvState mpvLibraryState();

// Starts loading and waits until it has finished or `milliseconds` have passed.
void mpvLibraryWait(int milliseconds);

// The library. Valid only in the state ready.
const MpvLibrary& mpvLibrary();
