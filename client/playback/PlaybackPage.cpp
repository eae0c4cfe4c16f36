#include "PlaybackPage.h"

#include "DayAxisWt.h"
#include "DownloadBar.h"
#include "MonthDays.h"
#include "PlaybackStage.h"
#include "RecorderColumn.h"
#include "SpanBar.h"
#include "StatePage.h"

#include "devices/CertificateDialog.h"
#include "devices/FirstRecorderWt.h"
#include "devices/LoginWords.h"
#include "devices/RecorderAddress.h"
#include "devices/RecorderLogins.h"
#include "devices/RecorderTree.h"

#include <axis/SpanWords.h>
#include <BaseTools.h>
#include <DataSignals.h>
#include <DevsMgrData.h>
#include <player/TransportButton.h>
#include <SystemWorker.h>
#include <UiSettings.h>
#include <WrappingBar.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSplitter>
#include <QStackedLayout>
#include <QTimeZone>
#include <QVBoxLayout>

#include <algorithm>

namespace vemo_client {

using vemo_base::AxisRow;
using vemo_base::DayAxis;
using vemo_base::SpanWords;
using vemo_base::TimeSpan;
using vemo_base::TransportButton;

namespace {

constexpr int pageMargin = 24;
constexpr int panelMargin = 16;
constexpr int columnWidth = 242;
constexpr int missingMs = 300;
constexpr int toldMs = 8000;
constexpr int footPixels = 12;

QString daySetting()
{
    return QStringLiteral("playback_day");
}

QString channelsSetting()
{
    return QStringLiteral("playback_channels");
}

QString splitterSetting()
{
    return QStringLiteral("playback_splitter");
}

QString listSetting()
{
    return QStringLiteral("playback_list");
}

QString dayText(const QDate& day)
{
    return vemo_base::BaseTools::instance().strDate(day, true);
}

QLabel* footLabel(QWidget* parent)
{
    auto* label = new QLabel(parent);
    QFont small = label->font();
    small.setPixelSize(footPixels);
    label->setFont(small);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

PlaybackPage::PlaybackPage(RecorderLogins* logins, QWidget* parent)
    : QWidget(parent)
    , m_logins(logins)
    , m_pages(new QStackedLayout(this))
    , m_splitter(new QSplitter(Qt::Horizontal))
    , m_column(new RecorderColumn(logins))
{
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setHandleWidth(1);
    QWidget* content = makeContent();
    m_splitter->addWidget(m_column);
    m_splitter->addWidget(content);
    m_splitter->setStretchFactor(1, 1);
    m_splitter->setSizes({columnWidth, 4 * columnWidth});
    m_pages->addWidget(m_splitter);
    m_months = new MonthDays(m_column->calendar(), this);

    m_toldTimer.setSingleShot(true);
    m_toldTimer.setInterval(toldMs);
    connect(&m_toldTimer, &QTimer::timeout, m_told, &QLabel::clear);
    connect(&m_requests, &QueueRequests::signalQueued, this, &PlaybackPage::signalQueued);
    connect(&m_days, &PlaybackDays::signalDayChanged, this, &PlaybackPage::tellStage);
    connect(&m_days, &PlaybackDays::signalChanged, this, &PlaybackPage::showDays);
    connect(&m_days, &PlaybackDays::signalFinished, this, &PlaybackPage::showBody);
    connect(m_logins, &RecorderLogins::signalChanged, this, &PlaybackPage::takeRecorders);
    connect(&vemo_worker::SystemWorker::instance(), &vemo_worker::SystemWorker::signalCurUserChanged, this,
            &PlaybackPage::showWhatIsChosen);
    connect(&vemo_data::DataSignals::instance(), &vemo_data::DataSignals::signalDevInfoChanged, this,
            &PlaybackPage::takeChannels); // their names
    connectColumn();
    connectStage();
    restore();
    takeRecorders();
}

PlaybackPage::~PlaybackPage() = default;

void PlaybackPage::connectColumn()
{
    connect(m_column, &RecorderColumn::signalDayPicked, this, &PlaybackPage::takeDay);
    connect(m_column, &RecorderColumn::signalSearchClicked, this,
            [this] { m_days.isSearching() ? m_days.cancel() : m_days.search(); });
    RecorderTree* tree = m_column->tree();
    connect(tree, &RecorderTree::signalCheckedChanged, this, &PlaybackPage::takeChannels);
    connect(tree, &RecorderTree::signalChannelActivated, this, [this] { m_playsNext = true; });
    connect(tree, &RecorderTree::signalSearchWanted, this, [this] {
        if (!std::exchange(m_playsNext, false)) {
            m_days.search();
            return;
        }
        m_days.searchMissing();
        m_stage->session()->play();
    });
    connect(tree, &QTreeWidget::currentItemChanged, this, &PlaybackPage::showBody);
}

void PlaybackPage::connectStage()
{
    PlaybackSession* session = m_stage->session();
    connect(session, &PlaybackSession::signalPosition, m_axisWt, &DayAxisWt::setCursorMs);
    connect(m_axisWt, &DayAxisWt::signalSeekRequested, this, [this, session](qint64 ms) {
        m_list->setChecked(false);
        session->seek(ms);
        m_days.searchMissing();
    });
    connect(m_stage, &PlaybackStage::signalPlayWanted, this, [this] {
        m_list->setChecked(false);
        m_days.searchMissing();
    });
    connect(m_stage, &PlaybackStage::signalChannelPlaced, this, &PlaybackPage::placeChannel);
    connect(m_stage, &PlaybackStage::signalChannelClosed, this, &PlaybackPage::closeChannel);
    connect(m_stage, &PlaybackStage::signalTilesChanged, this, &PlaybackPage::showTiles);
    connect(m_stage, &PlaybackStage::signalSelectedChanged, this, &PlaybackPage::showTiles);
    connect(m_stage, &PlaybackStage::signalTold, this, [this](const QString& sentence) {
        m_told->setText(sentence);
        m_toldTimer.start();
    });
}

QWidget* PlaybackPage::makeContent()
{
    auto* content = new QWidget;
    auto* body = new QWidget(content);
    m_body = new QStackedLayout(body);
    m_stage = new PlaybackStage(body);
    m_body->addWidget(m_stage);
    m_tablePage = new QWidget(body);
    auto* tableLayout = new QVBoxLayout(m_tablePage);
    tableLayout->setContentsMargins(pageMargin, pageMargin, pageMargin, pageMargin);
    m_table = new RecordingsTable(m_tablePage);
    tableLayout->addWidget(m_table);
    m_body->addWidget(m_tablePage);
    m_state = new StatePage(body);
    m_body->addWidget(m_state);
    connect(m_table, &RecordingsTable::signalChosenChanged, this, &PlaybackPage::takeChosen);
    connect(m_table, &RecordingsTable::signalActivated, this, &PlaybackPage::markRecording);

    QWidget* panel = makePanel();
    for (QWidget* area : {static_cast<QWidget*>(m_column), body, panel})
        area->setProperty("area", true);
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(body, 1);
    layout->addWidget(panel);
    return content;
}

/// Below the pictures: buttons, time line, words.
QWidget* PlaybackPage::makePanel()
{
    auto* panel = new QWidget;
    panel->setAutoFillBackground(true);
    panel->setBackgroundRole(QPalette::Button);
    panel->setProperty("bottomBar", true);
    auto* bar = new vemo_base::WrappingBar(panel);
    m_downloads = new DownloadBar(bar);
    m_spanBar = m_downloads->spanBar();
    m_list = new TransportButton(TransportButton::Kind::Quiet, QStringLiteral("queue"), tr("Recordings as a list"),
                                 m_downloads);
    m_list->setObjectName(QStringLiteral("listBt"));
    m_list->setCheckable(true);
    m_downloads->addTool(m_list);
    connect(m_list, &TransportButton::toggled, this, &PlaybackPage::showBody);
    connect(m_downloads, &DownloadBar::signalDownloadClicked, this, &PlaybackPage::download);
    auto* home = new QWidget(bar);
    auto* homeLayout = new QHBoxLayout(home);
    homeLayout->setContentsMargins(0, 0, 0, 0);
    homeLayout->addWidget(m_stage->transport());
    auto* grid = new QGridLayout(bar);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(home, 0, 0, Qt::AlignLeading);
    grid->addWidget(m_downloads, 0, 1, Qt::AlignTrailing);
    grid->setColumnStretch(1, 1);

    m_axisWt = new DayAxisWt(panel);
    m_axisWt->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(m_axisWt, &DayAxisWt::signalSpanMarked, this, [this](const std::optional<TimeSpan>& span) {
        m_spanBar->setSpan(span);
        takeMark(span);
    });
    connect(m_spanBar, &SpanBar::signalSpanMarked, this, [this](const std::optional<TimeSpan>& span) {
        m_axisWt->setSpan(span);
        takeMark(span);
    });
    connect(m_spanBar, &SpanBar::signalMarkingChosen, m_axisWt, &DayAxisWt::setMarking);

    m_summary = footLabel(panel);
    m_told = footLabel(panel);
    m_told->setForegroundRole(QPalette::WindowText);
    auto* foot = new QHBoxLayout;
    foot->addWidget(m_summary);
    foot->addStretch();
    foot->addWidget(m_told);
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(panelMargin, 8, panelMargin, 8);
    layout->setSpacing(8);
    layout->addWidget(bar);
    layout->addWidget(m_axisWt);
    layout->addLayout(foot);
    return panel;
}

void PlaybackPage::restore()
{
    const vemo_worker::UiSettings& settings = vemo_worker::UiSettings::instance();
    m_splitter->restoreState(settings.value(splitterSetting()).toByteArray());
    m_list->setChecked(settings.value(listSetting()).toBool());
    const QDate day = QDate::fromString(settings.value(daySetting()).toString(), Qt::ISODate);
    const QDate today = QDate::currentDate();
    m_column->setDay(day.isValid() && day <= today ? day : today);
    QVector<ChannelRef> channels;
    const QStringList kept = settings.value(channelsSetting()).toStringList();
    for (const QString& channelId : kept) {
        const QPair<QString, int> parts = vemo_base::BaseTools::instance().formatChannelId(channelId);
        if (!parts.first.isEmpty() && channels.size() < RecorderTree::mostChannels)
            channels.append({parts.first, parts.second});
    }
    takeDay(m_column->day());
    m_column->tree()->setCheckedChannels(channels);
}

void PlaybackPage::remember() const
{
    vemo_worker::UiSettings& settings = vemo_worker::UiSettings::instance();
    settings.setValue(splitterSetting(), m_splitter->saveState());
    settings.setValue(daySetting(), m_column->day().toString(Qt::ISODate));
    QStringList channels;
    for (const ChannelDay& day : m_days.days())
        channels.append(vemo_base::BaseTools::instance().formatChannelId(day.channel.devId, day.channel.channelNo));
    settings.setValue(channelsSetting(), channels);
    settings.setValue(listSetting(), m_list->isChecked());
}

void PlaybackPage::showRecorder(const QString& devId)
{
    m_column->tree()->showRecorder(devId);
}

void PlaybackPage::setDay(const QDate& day)
{
    m_column->setDay(day);
}

/// Without a recorder the page is the form that adds the first one, until that is online or kept.
void PlaybackPage::takeRecorders()
{
    const bool hasRecorder = !vemo_data::DevsMgrData::instance().devIds().isEmpty();
    if (!hasRecorder && !m_first) {
        m_first = new FirstRecorderWt(m_logins);
        connect(m_first, &FirstRecorderWt::signalAdded, this, [this] {
            m_pages->setCurrentWidget(m_splitter);
            m_column->tree()->setFocus(Qt::OtherFocusReason);
            m_pages->removeWidget(m_first);
            m_first->deleteLater();
            m_first = nullptr;
        });
        m_pages->addWidget(m_first);
        m_pages->setCurrentWidget(m_first);
    }
    showBody();
}

void PlaybackPage::takeChannels()
{
    const QVector<ChannelRef> channels = m_column->tree()->checkedChannels();
    m_stage->setChannels(channels);
    m_months->setChannel(channels.isEmpty() ? std::nullopt : std::optional<ChannelRef>(channels.first()));
    m_days.setChannels(channels);
}

/// A channel comes to a tile by being checked.
void PlaybackPage::placeChannel(const ChannelRef& channel, const std::optional<ChannelRef>& before)
{
    QVector<ChannelRef> channels = m_column->tree()->checkedChannels();
    if (before)
        channels.removeAll(*before);
    if (!channels.contains(channel) && channels.size() < RecorderTree::mostChannels)
        channels.append(channel);
    m_days.searchFromNowOn();
    m_column->tree()->setCheckedChannels(channels);
}

void PlaybackPage::closeChannel(const ChannelRef& channel)
{
    QVector<ChannelRef> channels = m_column->tree()->checkedChannels();
    channels.removeAll(channel);
    m_column->tree()->setCheckedChannels(channels);
}

void PlaybackPage::takeDay(const QDate& day)
{
    const DayAxis axis(day, QTimeZone::systemTimeZone());
    m_axisWt->setDay(axis);
    m_spanBar->setAxis(axis);
    m_span.reset();
    m_stage->setDay(axis);
    m_days.setAxis(axis);
}

/// What the stage needs to know of a search; a recorder without a list may have footage at any time.
void PlaybackPage::tellStage(const ChannelDay& day)
{
    const bool isFailed = day.state == ChannelDay::State::Failed;
    if (isFailed)
        m_stage->setFound(day, PlaybackDays::isDirect(day.channel) ? Footage::anywhere(m_days.axis()) : Footage());
    else if (day.state == ChannelDay::State::Found)
        m_stage->setFound(day, Footage(m_days.axis(), day.recordings));
    else if (day.state == ChannelDay::State::Searching)
        m_stage->setSearching(day.channel);
    if (!day.recordings.isEmpty())
        m_months->note(day.channel, m_days.axis().day());
}

void PlaybackPage::showDays()
{
    m_table->setDays(m_days.days());
    m_axisWt->setChannels(m_days.days());
    showSummary();
    showWhatIsChosen();
    showBody();
}

void PlaybackPage::showTiles()
{
    QVector<ChannelRef> shown;
    for (int tile = 0; tile < PlaybackSession::mostTiles; ++tile) {
        if (const std::optional<ChannelRef> channel = m_stage->session()->channel(tile))
            shown.append(*channel);
    }
    m_column->tree()->setActiveChannels(shown);
    m_axisWt->setSelectedChannel(m_stage->selectedChannel().value_or(ChannelRef()));
}

/// A recording of the table becomes the marked span.
void PlaybackPage::markRecording(const RecordingsTable::Place& place)
{
    if (place.day < 0 || place.day >= m_days.days().size())
        return;
    const vms_sdk::VideoRecording recording = m_days.days().at(place.day).recordings.value(place.recording);
    const TimeSpan span{qMax(m_days.axis().beginMs(), recording.begin.toMSecsSinceEpoch()),
                        qMin(m_days.axis().endMs(), recording.end.toMSecsSinceEpoch())};
    m_axisWt->setSpan(span);
    m_spanBar->setSpan(span);
    takeMark(span);
}

void PlaybackPage::takeMark(const std::optional<TimeSpan>& span)
{
    m_span = span;
    if (span)
        m_table->clearChosen();
    showWhatIsChosen();
}

void PlaybackPage::takeChosen()
{
    const QVector<RecordingsTable::Place> places = m_table->chosen();
    m_days.choose(places);
    if (!places.isEmpty() && m_span) {
        m_span.reset();
        m_axisWt->setSpan(std::nullopt);
        m_spanBar->setSpan(std::nullopt);
    }
    m_axisWt->setChannels(m_days.days());
    showWhatIsChosen();
}

void PlaybackPage::showWhatIsChosen()
{
    m_downloads->showChoice(m_days.days(), m_span);
}

void PlaybackPage::download()
{
    QVector<QueueRequests::Recording> recordings;
    QVector<ChannelRef> channels;
    for (const ChannelDay& day : m_days.days()) {
        channels.append(day.channel);
        QList<int> chosen = day.chosen.values();
        std::sort(chosen.begin(), chosen.end());
        for (const int index : qAsConst(chosen))
            recordings.append({day.channel, day.recordings.at(index)});
    }
    if (!recordings.isEmpty())
        m_requests.askFor(recordings, this);
    else if (m_span && !channels.isEmpty())
        m_requests.askFor(channels, *m_span, this);
    m_table->clearChosen();
}

void PlaybackPage::showSummary()
{
    int recordings = 0;
    int failed = 0;
    int found = 0;
    qint64 coveredMs = 0;
    for (const ChannelDay& day : m_days.days()) {
        recordings += day.recordings.size();
        found += day.state == ChannelDay::State::Found;
        failed += day.state == ChannelDay::State::Failed;
        coveredMs += AxisRow::coveredMs(m_days.axis(), day.recordings);
    }
    QString words;
    if (found > 0)
        words = SpanWords::recordings(recordings) + QLatin1String(", ") + SpanWords::length(coveredMs);
    if (recordings > RecordingsTable::mostRows)
        words += tr(", the first %1 are listed").arg(RecordingsTable::mostRows);
    if (failed > 0)
        words += (words.isEmpty() ? QString() : QStringLiteral(", ")) +
                 tr("%1 of %2 channels could not be searched").arg(failed).arg(m_days.days().size());
    m_summary->setText(words);
}

void PlaybackPage::showBody()
{
    const bool isSearching = m_days.isSearching();
    m_column->setSearching(isSearching, !m_days.days().isEmpty());
    const bool isOnline = !m_days.days().isEmpty() &&
                          m_logins->login(m_days.days().first().channel.devId).phase == RecorderLogins::Phase::Online;
    m_months->setAllowed(isOnline && !isSearching && m_days.hasSearched() &&
                         !PlaybackDays::isDirect(m_days.days().first().channel));
    const bool isList = m_list->isChecked();
    const bool canPlay = std::any_of(m_days.days().cbegin(), m_days.days().cend(), [](const ChannelDay& day) {
        return day.state == ChannelDay::State::Unknown || day.state == ChannelDay::State::Searching ||
               !day.recordings.isEmpty() || PlaybackDays::isDirect(day.channel);
    });
    if (isList && m_table->rows() > 0)
        m_body->setCurrentWidget(m_tablePage);
    else if (!isList && canPlay && (m_days.hasSearched() || failedRecorder().isEmpty()))
        m_body->setCurrentWidget(m_stage);
    else
        showState();
}

/// Why there is nothing to see, and what helps.
void PlaybackPage::showState()
{
    m_body->setCurrentWidget(m_state);
    const QString day = dayText(m_days.axis().day());
    const auto again = [this] { m_days.search(); };
    const auto failed = std::find_if(m_days.days().cbegin(), m_days.days().cend(), [](const ChannelDay& channel) {
        return channel.state == ChannelDay::State::Failed;
    });
    if (m_days.isSearching())
        m_state->say(QStringLiteral("search"), tr("The recordings of %1 are searched").arg(day),
                     tr("They appear here channel by channel."));
    else if (showFailedRecorder())
        return;
    else if (m_days.days().isEmpty())
        m_state->say(QStringLiteral("camera"), tr("No channel is chosen"),
                     tr("Check up to %1 channels, pick a day and press Search.").arg(RecorderTree::mostChannels));
    else if (failed != m_days.days().cend() && PlaybackDays::isDirect(failed->channel))
        m_state->say(QStringLiteral("mark-span"), tr("This recorder has no list of recordings"),
                     tr("Mark a span on the axis, or type two times, and press Download."));
    else if (failed != m_days.days().cend())
        m_state->say(QStringLiteral("warning"), tr("The recordings could not be searched"), failed->error.message,
                     tr("Retry"), again);
    else if (m_days.days().first().state == ChannelDay::State::Found)
        m_state->say(QStringLiteral("calendar"), tr("There is no recording on %1").arg(day),
                     tr("Pick another day, or check other channels."));
    else
        m_state->say(QStringLiteral("search"), tr("%1 was not searched yet").arg(day),
                     tr("Press Search to see what the recorder has."), tr("Search"), again);
}

/// The recorder of the checked channels, or else the one under the cursor, when it is not logged in.
QString PlaybackPage::failedRecorder() const
{
    const QString current = m_column->tree()->currentDevId();
    QStringList candidates;
    for (const ChannelDay& day : m_days.days())
        candidates.append(day.channel.devId);
    if (!current.isEmpty())
        candidates.prepend(current);
    for (const QString& devId : qAsConst(candidates)) {
        if (!LoginWords::failureOf(m_logins->login(devId)).title.isEmpty())
            return devId;
    }
    return {};
}

bool PlaybackPage::showFailedRecorder()
{
    const QString devId = failedRecorder();
    if (devId.isEmpty())
        return false;
    const RecorderLogins::Login login = m_logins->login(devId);
    const LoginWords::Failure failure = LoginWords::failureOf(login);
    const QString name = vemo_data::DevsMgrData::instance().getDevInfoById(devId).name;
    const bool wantsTrust = login.phase == RecorderLogins::Phase::CertificateUnknown;
    const bool wantsForm =
        login.phase == RecorderLogins::Phase::PasswordWanted || login.error.kind == vms_sdk::ErrorKind::LoginRefused;
    const QString deed = wantsTrust ? tr("Check the key...") : wantsForm ? tr("Type the login") : tr("Retry");
    m_state->say(LoginWords::stateOf(login).icon,
                 name.isEmpty() ? failure.title : QString(name % QLatin1String(": ") % failure.title),
                 failure.cause + QLatin1Char('\n') + failure.advice, deed, [this, devId, wantsTrust, wantsForm] {
                     if (wantsTrust)
                         (new CertificateDialog(m_logins, devId, window()))->open();
                     else if (wantsForm)
                         m_column->changeRecorder(devId);
                     else
                         m_logins->retry(devId);
                 });
    return true;
}

void PlaybackPage::keyPressEvent(QKeyEvent* event)
{
    if (!m_stage->isVisible() || !m_stage->takeKey(event))
        QWidget::keyPressEvent(event);
}

} // namespace vemo_client
