#include "LiveBar.h"

#include <Icons.h>
#include <player/TransportButton.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPushButton>

#include <array>

namespace vemo_client {

using vemo_base::Icons;
using vemo_base::TransportButton;

namespace {

constexpr int barHeight = 52;
constexpr int edge = 16;
constexpr int viewsWidth = 200;
constexpr int lineHeight = 20;
constexpr std::array<int, 3> tileCounts{1, 4, 9};

} // namespace

LiveBar::LiveBar(QWidget* parent)
    : QWidget(parent)
{
    setProperty("bottomBar", true);
    setMinimumHeight(barHeight);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(edge, 8, edge, 8);
    row->setSpacing(4);
    addViews(row);
    row->addSpacing(4);
    row->addWidget(separator());
    row->addSpacing(4);
    addTiles(row);
    row->addStretch(1);
    addDeeds(row);
}

QWidget* LiveBar::separator()
{
    auto* line = new QWidget(this);
    line->setAutoFillBackground(true);
    line->setBackgroundRole(QPalette::Mid);
    line->setFixedSize(1, lineHeight);
    return line;
}

void LiveBar::addViews(QHBoxLayout* row)
{
    m_views = new QComboBox(this);
    m_views->setObjectName(QStringLiteral("viewsCb"));
    m_views->setMinimumWidth(viewsWidth);
    m_views->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_views->setMinimumContentsLength(16);
    m_views->setAccessibleName(tr("View"));
    m_views->setToolTip(tr("The channels that are watched together"));
    connect(m_views, QOverload<int>::of(&QComboBox::activated), this, [this](int index) {
        if (m_views->itemData(index).isValid())
            emit signalViewChosen(m_views->itemText(index));
    });
    row->addWidget(m_views);

    auto* more = new TransportButton(TransportButton::Kind::Quiet, QStringLiteral("more"),
                                     tr("Save, rename or delete the view"), this);
    more->setObjectName(QStringLiteral("viewMenuBt"));
    m_menu = new QMenu(this);
    m_menu->addAction(Icons::icon(QStringLiteral("save-as")), tr("Save view as..."), this,
                      &LiveBar::signalSaveAsWanted);
    m_rename = m_menu->addAction(tr("Rename view..."), this, &LiveBar::signalRenameWanted);
    m_delete = m_menu->addAction(Icons::icon(QStringLiteral("clean")), tr("Delete view..."), this,
                                 &LiveBar::signalDeleteWanted);
    connect(more, &TransportButton::clicked, this, [this, more] {
        const QSize size = m_menu->sizeHint();
        m_menu->popup(more->mapToGlobal(QPoint(0, -size.height() - 4)));
    });
    row->addWidget(more);
}

void LiveBar::addTiles(QHBoxLayout* row)
{
    const std::array<QString, 3> icons{QStringLiteral("grid1"), QStringLiteral("grid4"), QStringLiteral("grid9")};
    const std::array<QString, 3> tips{tr("One channel (1)"), tr("Four channels (4)"), tr("Nine channels (9)")};
    for (std::size_t i = 0; i < tileCounts.size(); ++i) {
        auto* button = new TransportButton(TransportButton::Kind::Quiet, icons[i], tips[i], this);
        button->setObjectName(icons[i]);
        button->setCheckable(true);
        // What is checked follows what is shown, not the click.
        connect(button, &TransportButton::clicked, this, [this, button, i] {
            button->setChecked(!button->isChecked());
            emit signalTileCountChosen(tileCounts[i]);
        });
        m_counts.append(button);
        row->addWidget(button);
    }
}

void LiveBar::addDeeds(QHBoxLayout* row)
{
    m_summary = new QLabel(this);
    m_summary->setForegroundRole(QPalette::PlaceholderText);
    row->addWidget(m_summary);
    row->addSpacing(4);
    row->addWidget(separator());
    row->addSpacing(4);
    m_snapshot = new QPushButton(Icons::icon(QStringLiteral("snapshot")), tr("Snapshot"), this);
    m_snapshot->setObjectName(QStringLiteral("snapshotBt"));
    m_record = new QPushButton(this);
    m_record->setObjectName(QStringLiteral("recordBt"));
    m_record->setProperty("kind", QStringLiteral("primary"));
    // As wide as the longer of its two names, so that nothing moves.
    m_record->setIcon(Icons::icon(QStringLiteral("stop")));
    m_record->setText(tr("Stop recording"));
    const int wide = m_record->sizeHint().width();
    m_record->setText(tr("Record"));
    m_record->setMinimumWidth(qMax(wide, m_record->sizeHint().width()));
    auto* fullScreen =
        new TransportButton(TransportButton::Kind::Quiet, QStringLiteral("fullscreen"), tr("Full screen (F)"), this);
    fullScreen->setObjectName(QStringLiteral("fullScreenBt"));
    connect(m_snapshot, &QPushButton::clicked, this, &LiveBar::signalSnapshotWanted);
    connect(m_record, &QPushButton::clicked, this, &LiveBar::signalRecordWanted);
    connect(fullScreen, &TransportButton::clicked, this, &LiveBar::signalFullScreenWanted);
    row->addWidget(m_snapshot);
    row->addWidget(m_record);
    row->addSpacing(4);
    row->addWidget(fullScreen);
    setSelected(false, false, Recording::Off);
}

void LiveBar::setViews(const QStringList& names, const QString& current)
{
    m_views->clear();
    if (current.isEmpty())
        m_views->addItem(Icons::icon(QStringLiteral("live")), tr("View without a name"));
    for (const QString& name : names)
        m_views->addItem(Icons::icon(QStringLiteral("live")), name, true);
    m_views->setCurrentIndex(current.isEmpty() ? 0 : names.indexOf(current));
    m_rename->setEnabled(!current.isEmpty());
    m_delete->setEnabled(!current.isEmpty());
}

void LiveBar::setTileCount(int count)
{
    for (int i = 0; i < m_counts.size(); ++i)
        m_counts.at(i)->setChecked(tileCounts[static_cast<std::size_t>(i)] == count);
}

void LiveBar::setSummary(const QString& text)
{
    if (m_summary->text() != text)
        m_summary->setText(text);
}

void LiveBar::setSelected(bool hasChannel, bool hasPicture, Recording recording)
{
    const bool records = recording == Recording::On;
    m_snapshot->setEnabled(hasPicture);
    m_snapshot->setToolTip(hasPicture ? tr("Save the picture of the selected tile (S)")
                                      : tr("The selected tile shows no picture"));
    m_record->setEnabled(hasChannel);
    m_record->setIcon(Icons::icon(records ? QStringLiteral("stop") : QStringLiteral("local-recording")));
    m_record->setText(records ? tr("Stop recording") : tr("Record"));
    m_record->setToolTip(!hasChannel ? tr("The selected tile shows no channel")
                         : records   ? tr("Finish the file of the selected tile (R)")
                                     : tr("Record the channel of the selected tile on this computer (R)"));
}

void LiveBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const vemo_base::ThemeMode mode = vemo_base::StylePainter::modeOf(palette());
    painter.fillRect(rect(), vemo_base::themeColor(mode, vemo_base::Token::Surface));
    vemo_base::StylePainter::hairline(&painter, rect(), Qt::TopEdge, mode);
}

} // namespace vemo_client
