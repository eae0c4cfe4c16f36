#include "MpvLibrary.h"

#include <QLibrary>
#include <QMutex>
#include <QMutexLocker>

namespace vemo_base {

namespace {

template <typename Function>
bool resolve(QLibrary& library, const char* name, Function& function)
{
    function = reinterpret_cast<Function>(library.resolve(name));
    return function != nullptr;
}

bool resolveAll(QLibrary& from, MpvLibrary& to)
{
    return resolve(from, "mpv_client_api_version", to.clientApiVersion) && resolve(from, "mpv_create", to.create) &&
           resolve(from, "mpv_initialize", to.initialize) &&
           resolve(from, "mpv_terminate_destroy", to.terminateDestroy) &&
           resolve(from, "mpv_set_option_string", to.setOptionString) &&
           resolve(from, "mpv_command_async", to.commandAsync) &&
           resolve(from, "mpv_set_property_async", to.setPropertyAsync) &&
           resolve(from, "mpv_observe_property", to.observeProperty) &&
           resolve(from, "mpv_request_log_messages", to.requestLogMessages) &&
           resolve(from, "mpv_wait_event", to.waitEvent) &&
           resolve(from, "mpv_set_wakeup_callback", to.setWakeupCallback) &&
           resolve(from, "mpv_error_string", to.errorString) &&
           resolve(from, "mpv_render_context_create", to.renderContextCreate) &&
           resolve(from, "mpv_render_context_free", to.renderContextFree) &&
           resolve(from, "mpv_render_context_set_update_callback", to.renderContextSetUpdateCallback) &&
           resolve(from, "mpv_render_context_update", to.renderContextUpdate) &&
           resolve(from, "mpv_render_context_render", to.renderContextRender);
}

} // namespace

const MpvLibrary* MpvLibrary::load(QString& error)
{
    static QMutex mutex;
    static MpvLibrary functions;
    static bool loaded = false;
    const QMutexLocker lock(&mutex);
    if (loaded)
        return &functions;
        // Major version 2 of its interface, by which the system names it.
#if defined(Q_OS_WIN)
    QLibrary library(QStringLiteral("libmpv-2"));
#else
    QLibrary library(QStringLiteral("mpv"), 2);
#endif
    if (!library.load()) {
        error = library.errorString();
        return nullptr;
    }
    if (!resolveAll(library, functions) || functions.clientApiVersion() >> 16 != MPV_CLIENT_API_VERSION >> 16) {
        error = QStringLiteral("%1 is of another version").arg(library.fileName());
        return nullptr;
    }
    loaded = true;
    return &functions;
}

} // namespace vemo_base
