// A recorder that shares nothing with ours: GStreamer's RTSP server library serves a clip as a recording with ONVIF
// replay, and a test picture live under /live.
//
//   gst_replay_peer --clip FILE --begin UTC-SECONDS --user NAME --password-file FILE [--password-in-clear]
//                   [--silent]
//
// Prints {"rtsp": "rtsp://127.0.0.1:PORT/recording"} and serves until SIGTERM. The clip (QuickTime or MP4, H.264 or
// H.265, and AAC if it has it) stands on the peer's time line from --begin on; `Range: clock=` seeks in it,
// `Rate-Control: no` is obeyed, and every packet carries the replay extension 0xABAC of GStreamer's rtponviftimestamp.

#include <gst/app/gstappsink.h>
#include <gst/app/gstappsrc.h>
#include <gst/gst.h>
#include <gst/rtsp-server/rtsp-server.h>
// These do not declare themselves as C.
extern "C" {
#include <gst/rtsp-server/rtsp-onvif-media-factory.h>
#include <gst/rtsp-server/rtsp-onvif-server.h>
}

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <glib-unix.h>
#include <string>
#include <vector>

namespace {

// GStreamer turns `Range: clock=` into nanoseconds since 1900, and so do NTP times begin there.
constexpr GstClockTime secondsFrom1900To1970 = 2'208'988'800;

[[noreturn]] void fail(const std::string& message)
{
    std::fprintf(stderr, "gst_replay_peer: %s\n", message.c_str());
    std::exit(2);
}

/// All access units of one track of the clip, in decode order, with times on the recorder's time line.
struct Track
{
    GstCaps* caps = nullptr;
    std::vector<GstBuffer*> units;
};

/// Loads what a pipeline with an appsink named "out" delivers.
Track load(const std::string& pipeline, GstClockTime begin)
{
    GError* error = nullptr;
    GstElement* reader = gst_parse_launch(pipeline.c_str(), &error);
    if (!reader) {
        fail(error->message);
    }
    GstElement* sink = gst_bin_get_by_name(GST_BIN(reader), "out");
    gst_element_set_state(reader, GST_STATE_PLAYING);
    Track track;
    while (GstSample* sample = gst_app_sink_pull_sample(GST_APP_SINK(sink))) {
        if (!track.caps) {
            track.caps = gst_caps_copy(gst_sample_get_caps(sample));
        }
        GstBuffer* unit = gst_buffer_copy(gst_sample_get_buffer(sample));
        const GstSegment* segment = gst_sample_get_segment(sample);
        // Where the clip's edit list puts it: the delay of reordered pictures does not move the first one.
        const auto shift = [&](GstClockTime time) {
            return GST_CLOCK_TIME_IS_VALID(time) ? begin + time - segment->start : time;
        };
        GST_BUFFER_PTS(unit) = shift(GST_BUFFER_PTS(unit));
        GST_BUFFER_DTS(unit) = shift(GST_BUFFER_DTS(unit));
        track.units.push_back(unit);
        gst_sample_unref(sample);
    }
    gst_element_set_state(reader, GST_STATE_NULL);
    gst_object_unref(sink);
    gst_object_unref(reader);
    return track;
}

std::vector<Track>& tracks()
{
    static std::vector<Track> all;
    return all;
}

/// Feeds one track of one client's session; lives as long as its appsrc.
struct Feeder
{
    const Track* track = nullptr;
    std::size_t next = 0;
};

void onNeedData(GstAppSrc* source, guint, gpointer data)
{
    auto* feeder = static_cast<Feeder*>(data);
    if (feeder->next == feeder->track->units.size()) {
        gst_app_src_end_of_stream(source);
        return;
    }
    // The pipeline stamps what it gets, so every session has its own copies.
    gst_app_src_push_buffer(source, gst_buffer_copy(feeder->track->units[feeder->next++]));
}

gboolean onSeekData(GstAppSrc*, guint64 position, gpointer data)
{
    auto* feeder = static_cast<Feeder*>(data);
    const auto& units = feeder->track->units;
    feeder->next = 0;
    // The first key frame from there on: rtponviftimestamp has no time for what lies before the span.
    while (feeder->next < units.size() && (GST_BUFFER_FLAG_IS_SET(units[feeder->next], GST_BUFFER_FLAG_DELTA_UNIT) ||
                                           GST_BUFFER_PTS(units[feeder->next]) < position)) {
        ++feeder->next;
    }
    return TRUE;
}

void connectSource(GstElement* pipeline, const char* name, const Track& track)
{
    GstElement* source = gst_bin_get_by_name(GST_BIN(pipeline), name);
    GstClockTime end = 0;
    for (const GstBuffer* unit : track.units) {
        end = std::max(end, GST_BUFFER_PTS(unit) + GST_BUFFER_DURATION(unit));
    }
    g_object_set(source, "caps", track.caps, "format", GST_FORMAT_TIME, "stream-type", GST_APP_STREAM_TYPE_SEEKABLE,
                 "duration", end, nullptr);
    auto* feeder = new Feeder{&track, 0};
    GstAppSrcCallbacks callbacks{};
    callbacks.need_data = onNeedData;
    callbacks.seek_data = onSeekData;
    gst_app_src_set_callbacks(GST_APP_SRC(source), &callbacks, feeder,
                              [](gpointer data) { delete static_cast<Feeder*>(data); });
    gst_object_unref(source);
}

void onMediaConfigure(GstRTSPMediaFactory*, GstRTSPMedia* media, gpointer)
{
    GstElement* pipeline = gst_rtsp_media_get_element(media);
    for (std::size_t index = 0; index < tracks().size(); ++index) {
        connectSource(pipeline, index == 0 ? "video" : "audio", tracks()[index]);
    }
    gst_object_unref(pipeline);
}

/// H.264 with a key frame a second and G.711, made while somebody looks.
GstRTSPMediaFactory* makeLive()
{
    GstRTSPMediaFactory* factory = gst_rtsp_media_factory_new();
    gst_rtsp_media_factory_set_launch(
        factory,
        "( videotestsrc is-live=true ! video/x-raw,width=640,height=360,framerate=25/1 ! openh264enc gop-size=25 "
        "! rtph264pay config-interval=-1 pt=96 name=pay0 "
        "audiotestsrc is-live=true ! audio/x-raw,rate=8000,channels=1 ! alawenc ! rtppcmapay pt=8 name=pay1 )");
    gst_rtsp_media_factory_set_protocols(factory, GST_RTSP_LOWER_TRANS_TCP);
    return factory;
}

void demandLogin(GstRTSPServer* server, const std::vector<GstRTSPMediaFactory*>& factories, const std::string& user,
                 const std::string& password, bool inClear)
{
    GstRTSPAuth* auth = gst_rtsp_auth_new();
    GstRTSPToken* token = gst_rtsp_token_new(GST_RTSP_TOKEN_MEDIA_FACTORY_ROLE, G_TYPE_STRING, "operator", nullptr);
    if (inClear) {
        gchar* basic = gst_rtsp_auth_make_basic(user.c_str(), password.c_str());
        gst_rtsp_auth_add_basic(auth, basic, token);
        g_free(basic);
    } else {
        gst_rtsp_auth_set_supported_methods(auth, GST_RTSP_AUTH_DIGEST);
        gst_rtsp_auth_add_digest(auth, user.c_str(), password.c_str(), token);
    }
    gst_rtsp_token_unref(token);
    gst_rtsp_server_set_auth(server, auth);
    g_object_unref(auth);
    for (GstRTSPMediaFactory* factory : factories) {
        gst_rtsp_media_factory_add_role(factory, "operator", GST_RTSP_PERM_MEDIA_FACTORY_ACCESS, G_TYPE_BOOLEAN, TRUE,
                                        GST_RTSP_PERM_MEDIA_FACTORY_CONSTRUCT, G_TYPE_BOOLEAN, TRUE, nullptr);
    }
}

} // namespace

int main(int count, char** arguments)
{
    std::string clip;
    std::string user;
    std::string password;
    GstClockTime begin = 0;
    bool inClear = false;
    bool silent = false; // leaves the sound out
    for (int index = 1; index < count; ++index) {
        const std::string name = arguments[index];
        if (name == "--password-in-clear") {
            inClear = true;
            continue;
        }
        if (name == "--silent") {
            silent = true;
            continue;
        }
        if (index + 1 == count) {
            fail(name + " needs a value");
        }
        const std::string value = arguments[++index];
        if (name == "--clip") {
            clip = value;
        } else if (name == "--begin") {
            begin = (std::stoull(value) + secondsFrom1900To1970) * GST_SECOND;
        } else if (name == "--user") {
            user = value;
        } else if (name == "--password-file") {
            std::ifstream file(value);
            std::getline(file, password);
        } else {
            fail("unknown option " + name);
        }
    }
    if (clip.empty() || user.empty() || password.empty() || begin == 0) {
        fail("--clip, --begin, --user and --password-file are needed");
    }
    gst_init(nullptr, nullptr);

    const std::string demux = "filesrc location=" + clip + " ! qtdemux name=d ";
    // No parser on the way: it would make times of its own for reordered pictures.
    const std::string sink = "appsink name=out sync=false max-buffers=0";
    tracks().push_back(load(demux + "d.video_0 ! queue ! " + sink, begin));
    if (tracks()[0].units.empty()) {
        fail("the clip has no pictures");
    }
    const std::string codec = gst_structure_get_name(gst_caps_get_structure(tracks()[0].caps, 0));
    const std::string payloader = codec == "video/x-h265" ? "rtph265pay" : "rtph264pay";
    const Track audio = silent ? Track() : load(demux + "d.audio_0 ! queue ! " + sink, begin);
    std::string launch =
        "( appsrc name=video ! " + payloader + " config-interval=-1 pt=96 ! rtponviftimestamp ntp-offset=0 name=pay0 ";
    if (!audio.units.empty()) {
        tracks().push_back(audio);
        launch += "appsrc name=audio ! rtpmp4gpay pt=97 ! rtponviftimestamp ntp-offset=0 name=pay1 ";
    }
    launch += ")";

    GstRTSPServer* server = gst_rtsp_onvif_server_new();
    gst_rtsp_server_set_address(server, "127.0.0.1");
    gst_rtsp_server_set_service(server, "0");
    GstRTSPMediaFactory* factory = gst_rtsp_onvif_media_factory_new();
    gst_rtsp_onvif_media_factory_set_replay_support(GST_RTSP_ONVIF_MEDIA_FACTORY(factory), TRUE);
    gst_rtsp_media_factory_set_media_gtype(factory, GST_TYPE_RTSP_ONVIF_MEDIA);
    gst_rtsp_media_factory_set_launch(factory, launch.c_str());
    gst_rtsp_media_factory_set_protocols(factory, GST_RTSP_LOWER_TRANS_TCP);
    g_signal_connect(factory, "media-configure", G_CALLBACK(onMediaConfigure), nullptr);
    GstRTSPMediaFactory* live = makeLive();
    demandLogin(server, {factory, live}, user, password, inClear);
    GstRTSPMountPoints* mounts = gst_rtsp_server_get_mount_points(server);
    gst_rtsp_mount_points_add_factory(mounts, "/recording", factory);
    gst_rtsp_mount_points_add_factory(mounts, "/live", live);
    g_object_unref(mounts);
    if (gst_rtsp_server_attach(server, nullptr) == 0) {
        fail("cannot listen");
    }
    std::printf("{\"rtsp\": \"rtsp://127.0.0.1:%d/recording\"}\n", gst_rtsp_server_get_bound_port(server));
    std::fflush(stdout);

    GMainLoop* loop = g_main_loop_new(nullptr, FALSE);
    const auto quit = [](gpointer data) -> gboolean {
        g_main_loop_quit(static_cast<GMainLoop*>(data));
        return G_SOURCE_REMOVE;
    };
    g_unix_signal_add(SIGTERM, quit, loop);
    g_unix_signal_add(SIGINT, quit, loop);
    g_main_loop_run(loop);
    return 0;
}
