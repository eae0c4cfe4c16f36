#include "PlaybackTransport.h"

#include <Icons.h>
#include <player/TransportButton.h>

#include <QComboBox>
#include <QHBoxLayout>

namespace vemo_client {

using vemo_base::TransportButton;

namespace {

constexpr int lineHeight = 20;

} // namespace

const QVector<double>& PlaybackTransport::speeds()
{
    static const QVector<double> list{0.5, 1, 2, 4, 8, 16};
    return list;
}

PlaybackTransport::PlaybackTransport(QWidget* parent)
    : QWidget(parent)
{
    auto* row = new QHBoxLayout(this);
    row->setDirection(QBoxLayout::LeftToRight); // as on every recorder, also where text runs the other way
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    addPlaying();
    addSeparator();
    addSpeeds();
    addSeparator();
    addViews();
    setState({});
}

TransportButton* PlaybackTransport::addButton(const QString& icon, const QString& tip)
{
    auto* button = new TransportButton(TransportButton::Kind::Quiet, icon, tip, this);
    layout()->addWidget(button);
    return button;
}

void PlaybackTransport::addSeparator()
{
    auto* line = new QWidget(this);
    line->setAutoFillBackground(true);
    line->setBackgroundRole(QPalette::Mid);
    line->setFixedSize(1, lineHeight);
    auto* row = static_cast<QHBoxLayout*>(layout());
    row->addSpacing(4);
    row->addWidget(line);
    row->addSpacing(4);
}

void PlaybackTransport::addPlaying()
{
    TransportButton* back = addButton(QStringLiteral("skip-back"), tr("10 s back (Left arrow)"));
    TransportButton* frameBack = addButton(QStringLiteral("step-back"), tr("Frame back (comma)"));
    m_play = new TransportButton(TransportButton::Kind::SoftRound, QStringLiteral("start"), tr("Play (Space)"), this);
    m_play->setObjectName(QStringLiteral("playBt"));
    layout()->addWidget(m_play);
    TransportButton* frameOn = addButton(QStringLiteral("step-fwd"), tr("Frame on (period)"));
    TransportButton* on = addButton(QStringLiteral("skip-fwd"), tr("10 s on (Right arrow)"));
    m_needPosition << back << frameBack << frameOn << on;
    connect(back, &TransportButton::clicked, this, [this] { emit signalSkipRequested(-skipS); });
    connect(on, &TransportButton::clicked, this, [this] { emit signalSkipRequested(skipS); });
    connect(frameBack, &TransportButton::clicked, this, [this] { emit signalStepRequested(-1); });
    connect(frameOn, &TransportButton::clicked, this, [this] { emit signalStepRequested(1); });
    connect(m_play, &TransportButton::clicked, this, &PlaybackTransport::signalPlayRequested);
}

void PlaybackTransport::addSpeeds()
{
    m_speed = new QComboBox(this);
    for (const double speed : speeds())
        m_speed->addItem(vemo_base::Icons::icon(QStringLiteral("speed")), QString::number(speed) + QLatin1Char('x'),
                         speed);
    m_speed->setFocusPolicy(Qt::TabFocus);
    m_speed->setToolTip(tr("Speed ([ slower, ] faster)"));
    m_speed->setAccessibleName(tr("Speed"));
    connect(m_speed, QOverload<int>::of(&QComboBox::activated), this,
            [this](int index) { emit signalSpeedChosen(m_speed->itemData(index).toDouble()); });
    layout()->addWidget(m_speed);
}

void PlaybackTransport::addViews()
{
    m_inStep = addButton(QStringLiteral("sync"), tr("All channels play the same time"));
    m_inStep->setCheckable(true);
    m_snapshot = addButton(QStringLiteral("snapshot"), tr("Save the shown picture (S)"));
    m_snapshot->setObjectName(QStringLiteral("snapshotBt"));
    m_single = addButton(QStringLiteral("grid1"), tr("One channel"));
    m_four = addButton(QStringLiteral("grid4"), tr("Four channels"));
    m_fullScreen = addButton(QStringLiteral("fullscreen"), tr("Full screen (F)"));
    for (TransportButton* button : {m_single, m_four})
        button->setCheckable(true);
    // What is checked follows what happens, not the click.
    connect(m_inStep, &TransportButton::clicked, this, [this](bool checked) {
        m_inStep->setChecked(!checked);
        emit signalInStepChosen(checked);
    });
    connect(m_snapshot, &TransportButton::clicked, this, &PlaybackTransport::signalSnapshotRequested);
    connect(m_single, &TransportButton::clicked, this, [this] {
        m_single->setChecked(!m_single->isChecked());
        emit signalLayoutChosen(true);
    });
    connect(m_four, &TransportButton::clicked, this, [this] {
        m_four->setChecked(!m_four->isChecked());
        emit signalLayoutChosen(false);
    });
    connect(m_fullScreen, &TransportButton::clicked, this, &PlaybackTransport::signalFullScreenRequested);
}

void PlaybackTransport::setState(const State& state)
{
    for (QWidget* widget : qAsConst(m_needPosition))
        widget->setEnabled(state.hasPosition);
    m_play->setEnabled(state.canPlay);
    m_play->setFace(state.isPlaying ? QStringLiteral("pause") : QStringLiteral("start"),
                    !state.canPlay    ? tr("No channel is chosen")
                    : state.isPlaying ? tr("Pause (Space)")
                                      : tr("Play (Space)"));
    m_speed->setCurrentIndex(speeds().indexOf(state.speed));
    m_inStep->setChecked(state.isInStep);
    m_snapshot->setEnabled(state.hasPicture);
    m_single->setChecked(state.isSingle);
    m_four->setChecked(!state.isSingle);
    m_fullScreen->setFace(QStringLiteral("fullscreen"),
                          state.isFullScreen ? tr("Leave full screen (F)") : tr("Full screen (F)"));
}

void PlaybackTransport::stepSpeed(int direction)
{
    const int index = qBound(0, m_speed->currentIndex() + direction, speeds().size() - 1);
    if (index != m_speed->currentIndex())
        emit signalSpeedChosen(speeds().at(index));
}

} // namespace vemo_client
