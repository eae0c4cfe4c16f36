#include "TransportBar.h"

#include "ClockSlider.h"
#include "Icons.h"
#include "PlayerState.h"
#include "RecordingClock.h"
#include "StylePainter.h"
#include "TransportButton.h"
#include "VolumeSlider.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

namespace vemo_base {

namespace {

constexpr int margin = 20;
constexpr int skipS = 10;
constexpr int timePixels = 13;

QString speedText(double speed)
{
    return QString::number(speed) + QLatin1Char('x');
}

QWidget* separator(QWidget* parent)
{
    auto* line = new QWidget(parent);
    line->setAutoFillBackground(true);
    line->setBackgroundRole(QPalette::Mid);
    line->setFixedSize(1, 20);
    return line;
}

} // namespace

const QVector<double>& TransportBar::speeds()
{
    static const QVector<double> list{0.25, 0.5, 1, 2, 4, 8, 16};
    return list;
}

TransportBar::TransportBar(QWidget* parent)
    : QWidget(parent)
    , m_slider(new ClockSlider(this))
    , m_now(new QLabel(this))
    , m_end(new QLabel(this))
    , m_play(new TransportButton(TransportButton::Kind::Round, QStringLiteral("start"), tr("Play (Space)"), this))
    , m_speed(new QComboBox(this))
    , m_mute(new TransportButton(TransportButton::Kind::Quiet, QStringLiteral("volume"), tr("Mute (M)"), this))
    , m_volume(new VolumeSlider(this))
    , m_snapshot(new QPushButton(Icons::icon(QStringLiteral("snapshot")), tr("Snapshot"), this))
    , m_fullScreen(nullptr)
{
    setFixedHeight(barHeight);
    m_now->setObjectName(QStringLiteral("playerTime"));
    m_speed->setObjectName(QStringLiteral("playerSpeed"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, 4, margin, 8);
    layout->setSpacing(8);
    layout->addLayout(timeLine());
    layout->addLayout(buttons());
    connect(m_slider, &ClockSlider::signalSeekRequested, this, [this](qint64 clockMs) {
        showTime(clockMs);
        emit signalSeekRequested(clockMs);
    });
    setState({});
}

QLayout* TransportBar::timeLine()
{
    QFont font = m_now->font();
    font.setPixelSize(timePixels);
    m_end->setFont(font);
    m_end->setForegroundRole(QPalette::PlaceholderText);
    font.setWeight(QFont::DemiBold);
    m_now->setFont(font);
    const int room = QFontMetrics(font).horizontalAdvance(QStringLiteral("00:00:00"));
    for (QLabel* label : {m_now, m_end})
        label->setMinimumWidth(room);
    m_end->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_now->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    auto* row = new QHBoxLayout;
    row->setDirection(QBoxLayout::LeftToRight);
    row->setSpacing(8);
    row->addWidget(m_now);
    row->addWidget(m_slider, 1);
    row->addWidget(m_end);
    return row;
}

TransportButton* TransportBar::addButton(const QString& icon, const QString& tip)
{
    auto* button = new TransportButton(TransportButton::Kind::Quiet, icon, tip, this);
    m_needPicture.append(button);
    return button;
}

QLayout* TransportBar::buttons()
{
    TransportButton* back = addButton(QStringLiteral("skip-back"), tr("10 s back (Left arrow)"));
    TransportButton* frameBack = addButton(QStringLiteral("step-back"), tr("Frame back (comma)"));
    TransportButton* frameOn = addButton(QStringLiteral("step-fwd"), tr("Frame on (period)"));
    TransportButton* on = addButton(QStringLiteral("skip-fwd"), tr("10 s on (Right arrow)"));
    TransportButton* stop = addButton(QStringLiteral("stop"), tr("Stop and go to the beginning"));
    m_needPicture << m_play << m_slider << m_speed << m_snapshot;
    connect(back, &TransportButton::clicked, this, [this] { emit signalSkipRequested(-skipS); });
    connect(on, &TransportButton::clicked, this, [this] { emit signalSkipRequested(skipS); });
    connect(frameBack, &TransportButton::clicked, this, [this] { emit signalStepRequested(-1); });
    connect(frameOn, &TransportButton::clicked, this, [this] { emit signalStepRequested(1); });
    connect(stop, &TransportButton::clicked, this, &TransportBar::signalStopRequested);
    connect(m_play, &TransportButton::clicked, this, &TransportBar::signalPlayRequested);

    for (const double speed : speeds())
        m_speed->addItem(Icons::icon(QStringLiteral("speed")), speedText(speed), speed);
    m_speed->setCurrentIndex(speeds().indexOf(1));
    m_speed->setFocusPolicy(Qt::TabFocus);
    m_speed->setToolTip(tr("Speed ([ slower, ] faster)"));
    m_speed->setAccessibleName(tr("Speed"));
    connect(m_speed, QOverload<int>::of(&QComboBox::activated), this,
            [this](int index) { emit signalSpeedChosen(m_speed->itemData(index).toDouble()); });

    m_volume->setAccessibleName(tr("Volume"));
    m_volume->setToolTip(tr("Volume"));
    connect(m_volume, &VolumeSlider::valueChanged, this, &TransportBar::signalVolumeChosen);
    connect(m_mute, &TransportButton::clicked, this, [this] { emit signalMuteRequested(!m_muted); });

    m_snapshot->setFocusPolicy(Qt::TabFocus);
    m_snapshot->setAutoDefault(false);
    m_snapshot->setToolTip(tr("Save the shown picture (S)"));
    connect(m_snapshot, &QPushButton::clicked, this, &TransportBar::signalSnapshotRequested);
    auto* folder =
        new TransportButton(TransportButton::Kind::Quiet, QStringLiteral("open-folder"), tr("Open folder"), this);
    connect(folder, &TransportButton::clicked, this, &TransportBar::signalFolderRequested);
    m_fullScreen =
        new TransportButton(TransportButton::Kind::Quiet, QStringLiteral("fullscreen"), tr("Full screen (F)"), this);
    connect(m_fullScreen, &TransportButton::clicked, this, &TransportBar::signalFullScreenRequested);

    auto* row = new QHBoxLayout;
    row->setDirection(QBoxLayout::LeftToRight); // as on every recorder, also where text runs the other way
    row->setSpacing(4);
    row->addWidget(back);
    row->addWidget(frameBack);
    row->addSpacing(2);
    row->addWidget(m_play);
    row->addSpacing(2);
    row->addWidget(frameOn);
    row->addWidget(on);
    row->addWidget(stop);
    row->addSpacing(4);
    row->addWidget(separator(this));
    row->addSpacing(4);
    row->addWidget(m_speed);
    row->addSpacing(4);
    row->addWidget(separator(this));
    row->addSpacing(4);
    row->addWidget(m_mute);
    row->addWidget(m_volume);
    row->addStretch(1);
    row->addWidget(m_snapshot);
    row->addSpacing(8);
    row->addWidget(folder);
    row->addWidget(m_fullScreen);
    return row;
}

void TransportBar::setClock(const RecordingClock& clock)
{
    m_slider->setClock(clock);
    m_end->setText(clock.endMs() > clock.beginMs() ? clock.timeText(clock.endMs()) : QString());
}

void TransportBar::setClockMs(qint64 clockMs)
{
    m_slider->setClockMs(clockMs);
    if (!isDragging())
        showTime(clockMs);
}

void TransportBar::showTime(qint64 clockMs)
{
    m_now->setText(m_slider->maximum() > 0 ? m_slider->clock().timeText(clockMs) : QString());
}

void TransportBar::setState(const PlayerState& state)
{
    const bool ready = state.phase == PlayerState::Phase::Ready;
    for (QWidget* widget : qAsConst(m_needPicture))
        widget->setEnabled(ready);
    m_snapshot->setEnabled(ready && !state.shownSize.isEmpty());
    const bool playing = ready && !state.paused;
    if (playing != m_playing || m_play->accessibleName().isEmpty()) {
        m_playing = playing;
        m_play->setFace(playing ? QStringLiteral("pause") : QStringLiteral("start"),
                        playing ? tr("Pause (Space)") : tr("Play (Space)"));
    }
    const bool sounds = ready && !state.audioFormat.isEmpty();
    m_mute->setEnabled(sounds);
    m_volume->setEnabled(sounds);
    if (ready && state.muted != m_muted)
        m_muted = state.muted;
    m_mute->setFace(m_muted ? QStringLiteral("volume-off") : QStringLiteral("volume"),
                    ready && !sounds ? tr("The recording has no sound")
                    : m_muted        ? tr("Sound on (M)")
                                     : tr("Mute (M)"));
    if (ready)
        m_speed->setCurrentIndex(speeds().indexOf(state.speed));
}

void TransportBar::setFullScreen(bool on)
{
    m_fullScreen->setFace(QStringLiteral("fullscreen"), on ? tr("Leave full screen (F)") : tr("Full screen (F)"));
}

bool TransportBar::isDragging() const
{
    return m_slider->isSliderDown();
}

int TransportBar::volume() const
{
    return m_volume->value();
}

double TransportBar::speed() const
{
    return m_speed->currentData().toDouble();
}

void TransportBar::setVolume(int percent)
{
    m_volume->setValue(percent);
}

void TransportBar::stepSpeed(int direction)
{
    const int index = qBound(0, speeds().indexOf(speed()) + direction, speeds().size() - 1);
    m_speed->setCurrentIndex(index);
    emit signalSpeedChosen(speeds().at(index));
}

void TransportBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const ThemeMode mode = StylePainter::modeOf(palette());
    if (window()->isFullScreen()) // otherwise the dialog's own ground has the round corners
        painter.fillRect(rect(), themeColor(mode, Token::Surface));
    StylePainter::hairline(&painter, rect(), Qt::TopEdge, mode);
}

} // namespace vemo_base
