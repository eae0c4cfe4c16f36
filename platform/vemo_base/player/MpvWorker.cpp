#include "MpvWorker.h"

#include "MpvLibrary.h"
#include "PlayerMailbox.h"

#include <QFileInfo>
#include <QThreadPool>

#include <cstring>
#include <utility>

namespace vemo_base {

namespace {

constexpr quint64 seekReply = 1;
constexpr quint64 snapshotReply = 2;
constexpr int mostChapters = 4096;
constexpr int longestText = 4096;
constexpr int mostPictures = 4; ///< one shown, one on its way there, one waiting, one being made
constexpr int strideBytes = 64; ///< what the scaler's vector code wants

QString text(const char* utf8)
{
    return utf8 ? QString::fromUtf8(utf8).left(longestText) : QString();
}

const mpv_node* entryOf(const mpv_node& map, const char* key)
{
    if (map.format != MPV_FORMAT_NODE_MAP)
        return nullptr;
    for (int i = 0; i < map.u.list->num; ++i)
        if (std::strcmp(map.u.list->keys[i], key) == 0)
            return &map.u.list->values[i];
    return nullptr;
}

QString textOf(const mpv_node& map, const char* key)
{
    const mpv_node* entry = entryOf(map, key);
    return entry && entry->format == MPV_FORMAT_STRING ? text(entry->u.string) : QString();
}

qint64 numberOf(const mpv_node& map, const char* key)
{
    const mpv_node* entry = entryOf(map, key);
    return entry && entry->format == MPV_FORMAT_INT64 ? entry->u.int64 : 0;
}

/// A copy of what "screenshot-raw" gives; null when it is nothing of the kind.
QImage pictureOf(const mpv_node& map)
{
    constexpr qint64 widest = 32767;
    const mpv_node* data = entryOf(map, "data");
    const qint64 width = numberOf(map, "w");
    const qint64 height = numberOf(map, "h");
    const qint64 stride = numberOf(map, "stride");
    if (!data || data->format != MPV_FORMAT_BYTE_ARRAY || width <= 0 || height <= 0 || width > widest ||
        height > widest || stride < width * 4 || data->u.ba->size < static_cast<size_t>(stride * height) ||
        textOf(map, "format") != QLatin1String("bgr0"))
        return {};
    return QImage(static_cast<const uchar*>(data->u.ba->data), static_cast<int>(width), static_cast<int>(height),
                  static_cast<int>(stride), QImage::Format_RGB32)
        .copy();
}

QVector<PlayerChapter> chaptersOf(const mpv_node& list)
{
    QVector<PlayerChapter> chapters;
    if (list.format != MPV_FORMAT_NODE_ARRAY)
        return chapters;
    for (int i = 0; i < qMin(list.u.list->num, mostChapters); ++i) {
        const mpv_node& node = list.u.list->values[i];
        const mpv_node* start = entryOf(node, "time");
        if (start && start->format == MPV_FORMAT_DOUBLE)
            chapters.append({start->u.double_, textOf(node, "title")});
    }
    return chapters;
}

} // namespace

MpvWorker::MpvWorker(std::shared_ptr<PlayerMailbox> mailbox)
    : m_mailbox(std::move(mailbox))
{}

MpvWorker::~MpvWorker()
{
    if (m_renderer)
        m_library->renderContextFree(m_renderer);
    if (m_mpv) {
        m_library->setWakeupCallback(m_mpv, nullptr, nullptr);
        m_library->terminateDestroy(m_mpv);
    }
}

void MpvWorker::setOptions()
{
    static const std::initializer_list<std::pair<const char*, const char*>> options{
        {"vo", "libmpv"},
        {"config", "no"},
        {"terminal", "no"},
        {"osc", "no"},
        {"osd-level", "0"},
        {"input-default-bindings", "no"},
        {"input-vo-keyboard", "no"},
        {"load-scripts", "no"},
        {"load-stats-overlay", "no"},
        {"load-osd-console", "no"},
        {"load-auto-profiles", "no"},
        {"ytdl", "no"},
        {"sub-auto", "no"},
        {"sid", "no"}, // a text track with the clock would say what the dialog says already
        {"audio-file-auto", "no"},
        {"cover-art-auto", "no"},
        {"audio-fallback-to-null", "yes"},
        {"idle", "yes"},
        {"keep-open", "yes"},
        {"hr-seek", "yes"},
        // A recording is one local file: it may not send the player to others or into the network.
        {"access-references", "no"},
        {"demuxer-lavf-o", "protocol_whitelist=file"},
        {"demuxer-max-bytes", "16MiB"},
        {"demuxer-max-back-bytes", "4MiB"},
        {"sws-fast", "yes"},
    };
    for (const auto& [name, value] : options)
        m_library->setOptionString(m_mpv, name, value);
}

bool MpvWorker::start()
{
    if (m_renderer)
        return true;
    QString cause;
    m_library = MpvLibrary::load(cause);
    if (!m_library) {
        fail(tr("The player's library can't be loaded: %1.").arg(cause));
        return false;
    }
    if (!m_mpv) {
        m_mpv = m_library->create();
        if (!m_mpv) {
            fail(tr("The player can't be started: there is not enough memory."));
            return false;
        }
        setOptions();
        const int result = m_library->initialize(m_mpv);
        if (result < 0) {
            fail(tr("The player can't be started: %1.").arg(text(m_library->errorString(result))));
            return false;
        }
        m_library->setWakeupCallback(m_mpv, &MpvWorker::onWakeup, this);
    }
    mpv_render_param params[]{{MPV_RENDER_PARAM_API_TYPE, const_cast<char*>(MPV_RENDER_API_TYPE_SW)},
                              {MPV_RENDER_PARAM_INVALID, nullptr}};
    const int result = m_library->renderContextCreate(&m_renderer, m_mpv, params);
    if (result < 0) {
        m_renderer = nullptr;
        fail(tr("The player can't show pictures: %1.").arg(text(m_library->errorString(result))));
        return false;
    }
    m_library->renderContextSetUpdateCallback(m_renderer, &MpvWorker::onUpdate, this);

    static const std::initializer_list<std::pair<const char*, mpv_format>> properties{
        {"time-pos", MPV_FORMAT_DOUBLE},
        {"duration", MPV_FORMAT_DOUBLE},
        {"pause", MPV_FORMAT_FLAG},
        {"eof-reached", MPV_FORMAT_FLAG},
        {"speed", MPV_FORMAT_DOUBLE},
        {"volume", MPV_FORMAT_DOUBLE},
        {"mute", MPV_FORMAT_FLAG},
        {"dwidth", MPV_FORMAT_INT64},
        {"dheight", MPV_FORMAT_INT64},
        {"width", MPV_FORMAT_INT64},
        {"height", MPV_FORMAT_INT64},
        {"video-format", MPV_FORMAT_STRING},
        {"audio-codec-name", MPV_FORMAT_STRING},
        {"container-fps", MPV_FORMAT_DOUBLE},
        {"file-size", MPV_FORMAT_INT64},
        {"metadata", MPV_FORMAT_NODE},
        {"chapter-list", MPV_FORMAT_NODE},
    };
    for (const auto& [name, format] : properties)
        m_library->observeProperty(m_mpv, 0, name, format);
    return true;
}

void MpvWorker::fail(const QString& sentence)
{
    m_state.phase = PlayerState::Phase::Failed;
    m_state.error = sentence;
    m_mailbox->putState(m_state);
}

void MpvWorker::open(const QString& path)
{
    m_path = path;
    m_state.phase = PlayerState::Phase::Opening;
    m_state.error.clear();
    m_mailbox->putState(m_state);
    const QFileInfo file(path);
    if (!file.exists())
        return fail(tr("%1 is not there any more.").arg(file.fileName()));
    if (!file.isFile())
        return fail(tr("%1 is not a file.").arg(file.fileName()));
    if (file.size() == 0)
        return fail(tr("%1 is empty.").arg(file.fileName()));
    if (!file.isReadable())
        return fail(tr("%1 can't be read: you have no permission.").arg(file.fileName()));
    if (!start())
        return;
    m_seeking = false;
    m_nextSeekS = -1;
    setFlag("pause", false);
    command({"loadfile", file.absoluteFilePath().toUtf8(), "replace"});
}

void MpvWorker::setPaused(bool paused)
{
    setFlag("pause", paused);
}

void MpvWorker::seek(double positionS)
{
    m_nextSeekS = qMax(0.0, positionS);
    if (!m_seeking)
        sendSeek();
}

void MpvWorker::sendSeek()
{
    if (m_nextSeekS < 0 || m_state.phase != PlayerState::Phase::Ready)
        return;
    m_seeking = true;
    command({"seek", QByteArray::number(m_nextSeekS, 'f', 6), "absolute+exact"}, seekReply);
    m_nextSeekS = -1;
}

void MpvWorker::stepForward()
{
    command({"frame-step"});
}

void MpvWorker::stepBack()
{
    command({"frame-back-step"});
}

void MpvWorker::setSpeed(double speed)
{
    setNumber("speed", speed);
    if (!m_mpv)
        return;
    // Fast forward shows what the processor can decode instead of falling behind its own sound.
    constexpr double skipFrom = 4;
    command({"set", "framedrop", speed >= skipFrom ? "decoder+vo" : "vo"});
}

void MpvWorker::setVolume(int percent)
{
    setNumber("volume", percent);
}

void MpvWorker::setMuted(bool muted)
{
    setFlag("mute", muted);
}

void MpvWorker::setPictureSize(const QSize& size)
{
    if (m_pictureSize == size)
        return;
    m_pictureSize = size;
    m_pictures.clear();
    if (m_renderer && !m_state.shownSize.isEmpty())
        renderPicture();
}

void MpvWorker::takeSnapshot(const Snapshot& snapshot)
{
    if (m_state.phase != PlayerState::Phase::Ready || m_state.shownSize.isEmpty() || !m_snapshot.path.isEmpty())
        return;
    m_snapshot = snapshot;
    command({"screenshot-raw", "video"}, snapshotReply);
}

void MpvWorker::onWakeup(void* self)
{
    auto* worker = static_cast<MpvWorker*>(self);
    if (!worker->m_wakeupPosted.exchange(true))
        QMetaObject::invokeMethod(worker, &MpvWorker::drainEvents, Qt::QueuedConnection);
}

void MpvWorker::onUpdate(void* self)
{
    auto* worker = static_cast<MpvWorker*>(self);
    if (!worker->m_updatePosted.exchange(true))
        QMetaObject::invokeMethod(worker, &MpvWorker::render, Qt::QueuedConnection);
}

void MpvWorker::drainEvents()
{
    m_wakeupPosted = false;
    while (const mpv_event* event = m_library->waitEvent(m_mpv, 0)) {
        switch (event->event_id) {
        case MPV_EVENT_NONE:
            m_mailbox->putState(m_state);
            return;
        case MPV_EVENT_START_FILE:
            m_state.phase = PlayerState::Phase::Opening;
            break;
        case MPV_EVENT_FILE_LOADED:
            m_state.phase = PlayerState::Phase::Ready;
            sendSeek();
            break;
        case MPV_EVENT_PLAYBACK_RESTART:
            m_seeking = false;
            sendSeek();
            break;
        case MPV_EVENT_END_FILE:
            takeEndOfFile(*static_cast<const mpv_event_end_file*>(event->data));
            break;
        case MPV_EVENT_PROPERTY_CHANGE:
            takeProperty(*static_cast<const mpv_event_property*>(event->data));
            break;
        case MPV_EVENT_COMMAND_REPLY:
            if (event->reply_userdata == snapshotReply)
                takeSnapshotPicture(*static_cast<const mpv_event_command*>(event->data), event->error);
            else
                takeReply(event->reply_userdata, event->error);
            break;
        default:
            break;
        }
    }
}

void MpvWorker::takeProperty(const mpv_event_property& property)
{
    const QByteArray name(property.name);
    const auto is = [&name](const char* other) { return name == other; };
    if (property.format == MPV_FORMAT_DOUBLE) {
        const double value = *static_cast<const double*>(property.data);
        if (is("time-pos"))
            m_state.positionS = value;
        else if (is("speed"))
            m_state.speed = value;
        else if (is("volume"))
            m_state.volume = qRound(value);
    } else if (property.format == MPV_FORMAT_FLAG) {
        const bool value = *static_cast<const int*>(property.data) != 0;
        if (is("pause"))
            m_state.paused = value;
        else if (is("eof-reached"))
            m_state.atEnd = value;
        else if (is("mute"))
            m_state.muted = value;
    }
    takeFacts(name, property);
}

void MpvWorker::takeFacts(const QByteArray& name, const mpv_event_property& property)
{
    const auto is = [&name](const char* other) { return name == other; };
    if (property.format == MPV_FORMAT_DOUBLE) {
        const double value = *static_cast<const double*>(property.data);
        if (is("duration") && m_state.durationS != value) {
            m_state.durationS = value;
            ++m_state.factsVersion;
        } else if (is("container-fps")) {
            m_state.framesPerSecond = value;
        }
    } else if (property.format == MPV_FORMAT_INT64) {
        const qint64 value = *static_cast<const int64_t*>(property.data);
        if (is("file-size"))
            m_state.fileBytes = value;
        else if (is("dwidth"))
            m_state.shownSize.setWidth(static_cast<int>(value));
        else if (is("dheight"))
            m_state.shownSize.setHeight(static_cast<int>(value));
        else if (is("width"))
            m_state.codedSize.setWidth(static_cast<int>(value));
        else if (is("height"))
            m_state.codedSize.setHeight(static_cast<int>(value));
    } else if (property.format == MPV_FORMAT_STRING) {
        const QString value = text(*static_cast<char* const*>(property.data));
        if (is("video-format"))
            m_state.videoFormat = value;
        else if (is("audio-codec-name"))
            m_state.audioFormat = value;
    } else if (property.format == MPV_FORMAT_NODE) {
        const mpv_node& node = *static_cast<const mpv_node*>(property.data);
        if (is("chapter-list")) {
            m_state.chapters = chaptersOf(node);
        } else if (is("metadata")) {
            m_state.recordingStart = textOf(node, "com.vemo.start");
            m_state.recordingEnd = textOf(node, "com.vemo.end");
            m_state.creationTime = textOf(node, "creation_time");
        }
        ++m_state.factsVersion;
    } else if (property.format == MPV_FORMAT_NONE && is("video-format")) {
        m_state.videoFormat.clear();
        m_state.shownSize = QSize();
    } else if (property.format == MPV_FORMAT_NONE && is("audio-codec-name")) {
        m_state.audioFormat.clear();
    }
}

void MpvWorker::takeEndOfFile(const mpv_event_end_file& end)
{
    m_seeking = false;
    if (end.reason != MPV_END_FILE_REASON_ERROR)
        return;
    const QString name = QFileInfo(m_path).fileName();
    switch (end.error) {
    case MPV_ERROR_UNKNOWN_FORMAT:
        return fail(tr("%1 can't be read as a video: it is none, or its beginning or its end is damaged.").arg(name));
    case MPV_ERROR_NOTHING_TO_PLAY:
        return fail(tr("%1 has neither a picture nor sound that can be played.").arg(name));
    case MPV_ERROR_LOADING_FAILED:
        return fail(tr("%1 can't be opened. It may be damaged, or another program holds it.").arg(name));
    default:
        return fail(tr("%1 can't be played: %2.").arg(name, text(m_library->errorString(end.error))));
    }
}

void MpvWorker::takeReply(quint64 id, int error)
{
    if (id == seekReply && error < 0) {
        m_seeking = false;
        sendSeek();
    }
}

void MpvWorker::takeSnapshotPicture(const mpv_event_command& reply, int error)
{
    const Snapshot snapshot = std::exchange(m_snapshot, {});
    const QImage picture = error < 0 ? QImage() : pictureOf(reply.result);
    if (picture.isNull()) {
        m_mailbox->tellSnapshot({}, tr("The player gives no picture: %1.").arg(text(m_library->errorString(error))));
        return;
    }
    // Encoding would hold up the pictures that this thread makes.
    QThreadPool::globalInstance()->start([mailbox = m_mailbox, picture, snapshot] {
        const auto written = VCOMMON::SnapImageWriter::write(snapshot.path, picture, snapshot.facts, snapshot.format);
        mailbox->tellSnapshot(written.path, written.error);
    });
}

void MpvWorker::render()
{
    m_updatePosted = false;
    if (m_library->renderContextUpdate(m_renderer) & MPV_RENDER_UPDATE_FRAME)
        renderPicture();
}

QImage* MpvWorker::freePicture()
{
    for (QImage& picture : m_pictures)
        if (picture.isDetached())
            return &picture;
    if (m_pictures.size() >= mostPictures)
        return nullptr;
    const int bytes = (m_pictureSize.width() * 4 + strideBytes - 1) / strideBytes * strideBytes;
    void* memory =
        qMallocAligned(static_cast<size_t>(bytes) * static_cast<size_t>(m_pictureSize.height()), strideBytes);
    if (!memory)
        return nullptr;
    m_pictures.append(QImage(static_cast<uchar*>(memory), m_pictureSize.width(), m_pictureSize.height(), bytes,
                             QImage::Format_RGB32, &qFreeAligned, memory));
    return &m_pictures.last();
}

void MpvWorker::renderPicture()
{
    QImage* picture = m_pictureSize.isEmpty() ? nullptr : freePicture();
    // Without one the frame must be taken all the same, or playing would come to a stop.
    int skip = picture ? 0 : 1;
    int wait = 0;
    static uchar nothing[4]{};
    int size[2]{picture ? picture->width() : 1, picture ? picture->height() : 1};
    size_t stride = picture ? static_cast<size_t>(picture->bytesPerLine()) : sizeof nothing;
    // QImage::Format_RGB32 on the machines that we build for, which are little-endian.
    char format[]{"bgr0"};
    mpv_render_param params[]{{MPV_RENDER_PARAM_SW_SIZE, size},
                              {MPV_RENDER_PARAM_SW_FORMAT, format},
                              {MPV_RENDER_PARAM_SW_STRIDE, &stride},
                              {MPV_RENDER_PARAM_SW_POINTER, picture ? picture->bits() : nothing},
                              {MPV_RENDER_PARAM_BLOCK_FOR_TARGET_TIME, &wait},
                              {MPV_RENDER_PARAM_SKIP_RENDERING, &skip},
                              {MPV_RENDER_PARAM_INVALID, nullptr}};
    if (m_library->renderContextRender(m_renderer, params) >= 0 && picture)
        m_mailbox->putPicture(*picture);
}

void MpvWorker::command(std::initializer_list<QByteArray> words, quint64 id)
{
    if (!m_mpv)
        return;
    QVector<const char*> pointers;
    for (const QByteArray& word : words)
        pointers.append(word.constData());
    pointers.append(nullptr);
    m_library->commandAsync(m_mpv, id, pointers.data());
}

void MpvWorker::setFlag(const char* name, bool value)
{
    int flag = value ? 1 : 0;
    if (m_mpv)
        m_library->setPropertyAsync(m_mpv, 0, name, MPV_FORMAT_FLAG, &flag);
}

void MpvWorker::setNumber(const char* name, double value)
{
    if (m_mpv)
        m_library->setPropertyAsync(m_mpv, 0, name, MPV_FORMAT_DOUBLE, &value);
}

} // namespace vemo_base
