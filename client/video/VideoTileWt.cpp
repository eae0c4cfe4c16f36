#include "VideoTileWt.h"

#include "StreamDecoder.h"
#include "TileActionsWt.h"

#include "devices/ChannelMime.h"

#include <Icons.h>
#include <Theme.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QHelpEvent>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QToolTip>

namespace vemo_client {

using vemo_base::ThemeMode;

namespace {

constexpr int noteMs = 6000;
constexpr int turnMs = 80;
constexpr int turnDegrees = 30;

} // namespace

VideoTileWt::VideoTileWt(QWidget* parent)
    : QWidget(parent)
    , m_bar(new TileActionsWt(this))
    , m_button(new QPushButton(this))
{
    setObjectName(QStringLiteral("videoTile"));
    setPalette(vemo_base::Theme::palette(ThemeMode::Dark));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::ClickFocus);
    setAcceptDrops(true);
    m_bar->hide();
    m_button->hide();
    m_noteTimer.setSingleShot(true);
    m_noteTimer.setInterval(noteMs);
    m_ringTimer.setInterval(turnMs);
    connect(&m_noteTimer, &QTimer::timeout, this, [this] {
        m_face.note.clear();
        update();
    });
    connect(&m_ringTimer, &QTimer::timeout, this, [this] {
        m_face.ringDegrees = (m_face.ringDegrees + turnDegrees) % 360;
        update(painter().ringRect());
    });
    connect(m_button, &QPushButton::clicked, this, &VideoTileWt::signalButtonClicked);
    connect(m_bar, &TileActionsWt::signalAction, this, &VideoTileWt::signalAction);
    connect(m_bar, &TileActionsWt::signalFocusChanged, this, &VideoTileWt::showBar, Qt::QueuedConnection);
}

TilePainter VideoTileWt::painter() const
{
    return {m_face, rect(), font(), devicePixelRatioF()};
}

void VideoTileWt::placeParts()
{
    m_face.isMirrored = layoutDirection() == Qt::RightToLeft;
    m_bar->setGeometry(painter().barRect(m_bar->sizeHint()));
    if (!m_button->isHidden())
        m_button->setGeometry(painter().buttonRect(m_button->sizeHint()));
}

void VideoTileWt::setDecoder(StreamDecoder* decoder)
{
    if (m_decoder == decoder)
        return;
    if (m_decoder) {
        m_decoder->disconnect(this);
        m_decoder->setTargetSize({});
    }
    m_decoder = decoder;
    clearPicture();
    if (!decoder)
        return;
    connect(decoder, &StreamDecoder::signalPicture, this, &VideoTileWt::takePicture);
    connect(decoder, &StreamDecoder::signalFullPicture, this, &VideoTileWt::signalFullPicture);
    connect(decoder, &StreamDecoder::signalFormat, this, [this](const VideoFormat& format) {
        m_face.shape = format.shape;
        update();
    });
    m_face.shape = decoder->format().shape;
    tellTargetSize();
    takePicture();
}

StreamDecoder* VideoTileWt::decoder() const
{
    return m_decoder;
}

void VideoTileWt::requestFullPicture()
{
    if (m_decoder)
        m_decoder->requestFullPicture();
    else
        emit signalFullPicture({}, 0);
}

void VideoTileWt::clearPicture()
{
    m_face.picture = {};
    m_face.shape = {};
    update();
}

void VideoTileWt::takePicture()
{
    m_face.picture = m_decoder->picture();
    if (m_face.state != TileFace::State::Message)
        update(painter().videoRect());
}

void VideoTileWt::tellTargetSize()
{
    if (m_decoder)
        m_decoder->setTargetSize(isVisible() ? (QSizeF(painter().videoRect().size()) * devicePixelRatioF()).toSize()
                                             : QSize());
}

void VideoTileWt::setTitle(const QString& title)
{
    m_face.title = title;
    describe();
    update();
}

void VideoTileWt::setClockText(const QString& text)
{
    if (m_face.clockText == text)
        return;
    m_face.clockText = text;
    update();
}

void VideoTileWt::setFormatText(const QString& text, const QString& tip)
{
    m_face.formatText = text;
    m_formatTip = tip;
    update();
}

QString VideoTileWt::formatWords(const VideoFormat& format)
{
    if (format.codec.isEmpty() || format.size.isEmpty())
        return {};
    if (format.fps <= 0)
        return tr("%1 %2 x %3").arg(format.codec).arg(format.size.width()).arg(format.size.height());
    return tr("%1 %2 x %3, %4 fps")
        .arg(format.codec)
        .arg(format.size.width())
        .arg(format.size.height())
        .arg(qRound(format.fps));
}

void VideoTileWt::setRecordingText(const QString& text)
{
    if (m_face.recordingText == text)
        return;
    const bool moves = m_face.recordingText.isEmpty() != text.isEmpty();
    m_face.recordingText = text;
    if (moves) {
        describe();
        placeParts();
    }
    update();
}

void VideoTileWt::setActions(const QVector<Action>& actions)
{
    m_bar->setActions(actions);
    placeParts();
    showBar();
}

void VideoTileWt::setSelected(bool selected)
{
    m_face.isSelected = selected;
    setFocusPolicy(selected ? Qt::StrongFocus : Qt::ClickFocus);
    update();
}

void VideoTileWt::clearState()
{
    setState(TileFace::State::Picture, {}, {});
}

void VideoTileWt::setBusy(const QString& text)
{
    setState(TileFace::State::Busy, {}, text);
}

void VideoTileWt::setMessage(const QString& iconName, const QString& text, const QString& buttonText,
                             const QString& buttonIcon)
{
    setState(TileFace::State::Message, iconName, text);
    m_button->setText(buttonText);
    m_button->setIcon(buttonIcon.isEmpty()
                          ? QIcon()
                          : QIcon(vemo_base::Icons::pixmap(
                                buttonIcon, m_button->iconSize().width(),
                                vemo_base::themeColor(ThemeMode::Dark, vemo_base::Token::Text), devicePixelRatioF())));
    m_button->setVisible(!buttonText.isEmpty());
    placeParts();
}

void VideoTileWt::setState(TileFace::State state, const QString& iconName, const QString& text)
{
    if (m_face.state == state && m_face.stateIcon == iconName && m_face.stateText == text)
        return;
    m_face.state = state;
    m_face.stateIcon = iconName;
    m_face.stateText = text;
    if (state != TileFace::State::Message)
        m_button->hide();
    if (state == TileFace::State::Busy && isVisible())
        m_ringTimer.start();
    else
        m_ringTimer.stop();
    describe();
    placeParts();
    update();
}

void VideoTileWt::showNote(const QString& text)
{
    m_face.note = text;
    m_noteTimer.start();
    update();
}

void VideoTileWt::describe()
{
    setAccessibleName(m_face.title.isEmpty() ? tr("Empty tile") : m_face.title);
    setAccessibleDescription(m_face.recordingText.isEmpty() ? m_face.stateText
                                                            : tr("Recording. %1").arg(m_face.stateText).trimmed());
}

/// The bar shows under the pointer, and while the tile or one of the buttons has the focus by keyboard.
void VideoTileWt::showBar()
{
    const bool wanted = !m_bar->isEmpty() && (underMouse() || m_face.isFocused || m_bar->holdsFocus());
    m_bar->setVisible(wanted);
    if (wanted)
        m_bar->raise();
}

bool VideoTileWt::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        if (!m_formatTip.isEmpty() && painter().formatRect().contains(help->pos()))
            QToolTip::showText(help->globalPos(), m_formatTip, this);
        else
            QToolTip::hideText();
        return true;
    }
    return QWidget::event(event);
}

void VideoTileWt::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange) {
        placeParts();
        update();
    }
    QWidget::changeEvent(event);
}

void VideoTileWt::contextMenuEvent(QContextMenuEvent* event)
{
    emit signalSelected();
    emit signalContextMenuWanted(event->globalPos());
}

void VideoTileWt::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->source() == this || !ChannelMime::decode(event->mimeData()))
        return;
    m_face.isDropTarget = true;
    event->acceptProposedAction();
    update();
}

void VideoTileWt::dragLeaveEvent(QDragLeaveEvent*)
{
    m_face.isDropTarget = false;
    update();
}

void VideoTileWt::dropEvent(QDropEvent* event)
{
    m_face.isDropTarget = false;
    update();
    if (const auto channel = ChannelMime::decode(event->mimeData())) {
        event->acceptProposedAction();
        emit signalChannelDropped(*channel, qobject_cast<QWidget*>(event->source()));
    }
}

void VideoTileWt::enterEvent(QEvent*)
{
    showBar();
}

void VideoTileWt::leaveEvent(QEvent*)
{
    showBar();
}

void VideoTileWt::focusInEvent(QFocusEvent* event)
{
    const Qt::FocusReason reason = event->reason();
    m_face.isFocused =
        reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
    emit signalSelected();
    showBar();
    update();
}

void VideoTileWt::focusOutEvent(QFocusEvent*)
{
    m_face.isFocused = false;
    // The focus may be on its way to one of the buttons, which are to stay then.
    QMetaObject::invokeMethod(
        this, [this] { showBar(); }, Qt::QueuedConnection);
    update();
}

void VideoTileWt::hideEvent(QHideEvent*)
{
    m_ringTimer.stop();
    tellTargetSize();
}

void VideoTileWt::showEvent(QShowEvent*)
{
    if (m_face.state == TileFace::State::Busy)
        m_ringTimer.start();
    tellTargetSize();
}

void VideoTileWt::paintEvent(QPaintEvent*)
{
    QPainter canvas(this);
    painter().paint(&canvas);
}

void VideoTileWt::resizeEvent(QResizeEvent*)
{
    placeParts();
    tellTargetSize();
}

void VideoTileWt::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        emit signalDoubleClicked();
}

void VideoTileWt::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->pos();
    emit signalSelected();
}

void VideoTileWt::mouseMoveEvent(QMouseEvent* event)
{
    const bool isDrag = (event->buttons() & Qt::LeftButton) &&
                        (event->pos() - m_pressed).manhattanLength() >= QApplication::startDragDistance();
    if (!isDrag || !m_dragChannel)
        return;
    auto* mime = new QMimeData;
    mime->setData(ChannelMime::type(), ChannelMime::encode(*m_dragChannel));
    auto* drag = new QDrag(this);
    drag->setMimeData(mime);
    drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
}

} // namespace vemo_client
