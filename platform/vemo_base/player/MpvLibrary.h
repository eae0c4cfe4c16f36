#pragma once

#include <QString>

#include <mpv/client.h>
#include <mpv/render.h>

namespace vemo_base {

/// The functions of the playing library, which is loaded when a file is first played: it brings along more than a
/// hundred others and would cost every start of the client several times what the rest does. Stays loaded. Any thread.
struct MpvLibrary
{
    decltype(&mpv_client_api_version) clientApiVersion = nullptr;
    decltype(&mpv_create) create = nullptr;
    decltype(&mpv_initialize) initialize = nullptr;
    decltype(&mpv_terminate_destroy) terminateDestroy = nullptr;
    decltype(&mpv_set_option_string) setOptionString = nullptr;
    decltype(&mpv_command_async) commandAsync = nullptr;
    decltype(&mpv_set_property_async) setPropertyAsync = nullptr;
    decltype(&mpv_observe_property) observeProperty = nullptr;
    decltype(&mpv_request_log_messages) requestLogMessages = nullptr;
    decltype(&mpv_wait_event) waitEvent = nullptr;
    decltype(&mpv_set_wakeup_callback) setWakeupCallback = nullptr;
    decltype(&mpv_error_string) errorString = nullptr;
    decltype(&mpv_render_context_create) renderContextCreate = nullptr;
    decltype(&mpv_render_context_free) renderContextFree = nullptr;
    decltype(&mpv_render_context_set_update_callback) renderContextSetUpdateCallback = nullptr;
    decltype(&mpv_render_context_update) renderContextUpdate = nullptr;
    decltype(&mpv_render_context_render) renderContextRender = nullptr;

    /// nullptr, with the system's words in `error`, where it is missing or of another major version.
    static const MpvLibrary* load(QString& error);
};

} // namespace vemo_base
