#include "PlaybackPage.h"

#include "DayAxisWt.h"
#include "RecorderColumn.h"
#include "RecordingsTable.h"
#include "SpanBar.h"

#include "devices/FirstRecorderWt.h"
#include "devices/LoginWords.h"
#include "devices/RecorderAddress.h"
#include "devices/RecorderLogins.h"
#include "devices/RecorderTree.h"

#include <axis/SpanWords.h>
#include <BaseTools.h>
#include <DevsMgrData.h>
#include <EmptyStateWt.h>
#include <Icons.h>
#include <PageHeader.h>
#include <UiSettings.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QStackedLayout>
#include <QTimeZone>
#include <QToolButton>
#include <QVariant>
#include <QVBoxLayout>

#include <algorithm>

namespace vemo_client {

using vemo_base::AxisRow;
using vemo_base::DayAxis;
using vemo_base::SpanWords;
using vemo_base::TimeSpan;

namespace {

constexpr int pageMargin = 24;
constexpr int pageTop = 20;
constexpr int columnWidth = 242;
constexpr int missingMs = 300;

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

QToolButton* arrow(const QString& icon, const QString& tip, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setIcon(vemo_base::Icons::icon(icon));
    button->setIconSize(QSize(20, 20));
    button->setAutoRaise(true);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    return button;
}

QString dayText(const QDate& day)
{
    return vemo_base::BaseTools::instance().strDate(day, true);
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

    m_missingTimer.setSingleShot(true);
    m_missingTimer.setInterval(missingMs);
    connect(&m_missingTimer, &QTimer::timeout, this, &PlaybackPage::searchMissing);
    connect(&m_daySearch, &DaySearch::signalFound, this,
            [this](int index, const QList<vms_sdk::VideoRecording>& recordings) {
                takeFound(m_searched.at(index), recordings);
            });
    connect(&m_daySearch, &DaySearch::signalFailed, this,
            [this](int index, const vms_sdk::Error& error) { takeFailed(m_searched.at(index), error); });
    connect(&m_daySearch, &DaySearch::signalFinished, this, &PlaybackPage::showBody);
    connect(&m_requests, &QueueRequests::signalQueued, this, &PlaybackPage::signalQueued);
    connect(m_column, &RecorderColumn::signalDayPicked, this, &PlaybackPage::takeDay);
    RecorderTree* tree = m_column->tree();
    connect(tree, &RecorderTree::signalCheckedChanged, this, &PlaybackPage::takeChannels);
    connect(tree, &RecorderTree::signalSearchWanted, this, &PlaybackPage::search);
    connect(tree, &QTreeWidget::currentItemChanged, this, &PlaybackPage::showBody);
    connect(m_logins, &RecorderLogins::signalChanged, this, &PlaybackPage::takeRecorders);
    restore();
    takeRecorders();
}

PlaybackPage::~PlaybackPage() = default;

QWidget* PlaybackPage::makeContent()
{
    auto* content = new QWidget;
    m_header = new vemo_base::PageHeader(tr("Playback"), content);
    m_chosenWords = new QLabel(content);
    m_chosenWords->setTextFormat(Qt::PlainText);
    m_chosenWords->setForegroundRole(QPalette::PlaceholderText);
    m_header->addTool(m_chosenWords);
    m_download = m_header->addButton(QStringLiteral("downloadBt"), QStringLiteral("download-mgr"), tr("Download"),
                                     vemo_base::PageHeader::Weight::Primary);
    connect(m_download, &QPushButton::clicked, this, &PlaybackPage::download);

    m_axisWt = new DayAxisWt(content);
    m_axisWt->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(m_axisWt, &DayAxisWt::signalSpanMarked, this, [this](const std::optional<TimeSpan>& span) {
        m_spanBar->setSpan(span);
        takeMark(span);
    });
    m_spanBar = new SpanBar(content);
    connect(m_spanBar, &SpanBar::signalSpanMarked, this, [this](const std::optional<TimeSpan>& span) {
        m_axisWt->setSpan(span);
        takeMark(span);
    });

    auto* body = new QWidget(content);
    m_body = new QStackedLayout(body);
    m_table = new RecordingsTable(body);
    m_body->addWidget(m_table);
    connect(m_table, &RecordingsTable::signalChosenChanged, this, &PlaybackPage::takeChosen);
    connect(m_table, &RecordingsTable::signalActivated, this, [this](const RecordingsTable::Place& place) {
        if (place.day < 0 || place.day >= m_days.size())
            return;
        const vms_sdk::VideoRecording recording = m_days.at(place.day).recordings.value(place.recording);
        const TimeSpan span{qMax(m_axis.beginMs(), recording.begin.toMSecsSinceEpoch()),
                            qMin(m_axis.endMs(), recording.end.toMSecsSinceEpoch())};
        m_axisWt->setSpan(span);
        m_spanBar->setSpan(span);
        takeMark(span);
    });

    QWidget* dayBar = makeDayBar();
    for (QWidget* area : {static_cast<QWidget*>(m_column), dayBar, static_cast<QWidget*>(m_axisWt), body})
        area->setProperty("area", true);

    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(pageMargin, pageTop, pageMargin, pageTop);
    layout->setSpacing(8);
    layout->addWidget(m_header);
    layout->addSpacing(8);
    layout->addWidget(dayBar);
    layout->addWidget(m_axisWt);
    layout->addWidget(m_spanBar);
    layout->addWidget(body, 1);
    return content;
}

QWidget* PlaybackPage::makeDayBar()
{
    auto* bar = new QWidget;
    QToolButton* before = arrow(QStringLiteral("chev-left"), tr("Day before"), bar);
    QToolButton* next = arrow(QStringLiteral("chev-right"), tr("Next day"), bar);
    m_dayLabel = new QLabel(bar);
    QFont strong = m_dayLabel->font();
    strong.setWeight(QFont::DemiBold);
    m_dayLabel->setFont(strong);
    m_search = new QPushButton(bar);
    m_search->setIcon(vemo_base::Icons::icon(QStringLiteral("search")));

    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(before);
    layout->addWidget(m_dayLabel);
    layout->addWidget(next);
    layout->addWidget(m_search);
    layout->addStretch();

    connect(before, &QToolButton::clicked, this, [this] { setDay(m_column->day().addDays(-1)); });
    connect(next, &QToolButton::clicked, this, [this] { setDay(m_column->day().addDays(1)); });
    connect(m_search, &QPushButton::clicked, this, [this] {
        if (m_daySearch.isRunning()) {
            m_daySearch.cancel();
            for (ChannelDay& day : m_days) {
                if (day.state == ChannelDay::State::Searching)
                    day.state = ChannelDay::State::Unknown;
            }
            showDays();
        } else {
            search();
        }
    });
    return bar;
}

void PlaybackPage::restore()
{
    const vemo_worker::UiSettings& settings = vemo_worker::UiSettings::instance();
    m_splitter->restoreState(settings.value(splitterSetting()).toByteArray());
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
    for (const ChannelDay& day : m_days)
        channels.append(vemo_base::BaseTools::instance().formatChannelId(day.channel.devId, day.channel.channelNo));
    settings.setValue(channelsSetting(), channels);
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
    QVector<ChannelDay> days;
    for (const ChannelRef& channel : channels) {
        const ChannelDay* known = dayOf(channel);
        ChannelDay day = known ? *known : ChannelDay();
        day.channel = channel;
        day.name = vemo_base::BaseTools::instance().getChannelName(channel.devId, channel.channelNo);
        days.append(day);
    }
    m_days = days;
    showDays();
    if (m_hasSearched)
        m_missingTimer.start();
}

void PlaybackPage::takeDay(const QDate& day)
{
    m_daySearch.cancel();
    m_axis = DayAxis(day, QTimeZone::systemTimeZone());
    m_axisWt->setDay(m_axis);
    m_spanBar->setAxis(m_axis);
    m_span.reset();
    m_dayLabel->setText(dayText(day));
    for (ChannelDay& channel : m_days) {
        channel.state = ChannelDay::State::Unknown;
        channel.recordings.clear();
        channel.chosen.clear();
    }
    showDays();
    if (m_hasSearched)
        m_missingTimer.start();
}

ChannelDay* PlaybackPage::dayOf(const ChannelRef& channel)
{
    for (ChannelDay& day : m_days) {
        if (day.channel == channel)
            return &day;
    }
    return nullptr;
}

void PlaybackPage::search()
{
    QVector<ChannelRef> channels;
    for (const ChannelDay& day : qAsConst(m_days))
        channels.append(day.channel);
    searchFor(channels);
}

/// What was picked since the last search, and what that search did not come to.
void PlaybackPage::searchMissing()
{
    QVector<ChannelRef> channels;
    for (const ChannelDay& day : qAsConst(m_days)) {
        if (day.state == ChannelDay::State::Unknown || day.state == ChannelDay::State::Searching)
            channels.append(day.channel);
    }
    if (!channels.isEmpty())
        searchFor(channels);
}

void PlaybackPage::searchFor(const QVector<ChannelRef>& channels)
{
    m_missingTimer.stop();
    if (channels.isEmpty() || !m_axis.isValid())
        return;
    m_hasSearched = true;
    for (const ChannelRef& channel : channels) {
        ChannelDay* day = dayOf(channel);
        day->state = ChannelDay::State::Searching;
        day->recordings.clear();
        day->chosen.clear();
    }
    m_searched = channels;
    m_daySearch.start(channels, TimeSpan{m_axis.beginMs(), m_axis.endMs()});
    showDays();
}

void PlaybackPage::takeFound(const ChannelRef& channel, const QList<vms_sdk::VideoRecording>& recordings)
{
    if (ChannelDay* day = dayOf(channel)) {
        day->state = ChannelDay::State::Found;
        day->recordings = recordings;
        showDays();
    }
}

void PlaybackPage::takeFailed(const ChannelRef& channel, const vms_sdk::Error& error)
{
    if (ChannelDay* day = dayOf(channel)) {
        day->state = ChannelDay::State::Failed;
        day->error = error;
        if (RecorderAddress::isDirect(vemo_data::DevsMgrData::instance().devRecord(channel.devId).address))
            day->error.message = tr("No list of recordings: mark a span and press Download");
        showDays();
    }
}

void PlaybackPage::showDays()
{
    m_table->setDays(m_days);
    m_axisWt->setChannels(m_days);
    showSummary();
    showWhatIsChosen();
    showBody();
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
    for (ChannelDay& day : m_days)
        day.chosen.clear();
    const QVector<RecordingsTable::Place> places = m_table->chosen();
    for (const RecordingsTable::Place& place : places)
        m_days[place.day].chosen.insert(place.recording);
    if (!places.isEmpty() && m_span) {
        m_span.reset();
        m_axisWt->setSpan(std::nullopt);
        m_spanBar->setSpan(std::nullopt);
    }
    m_axisWt->setChannels(m_days);
    showWhatIsChosen();
}

void PlaybackPage::showWhatIsChosen()
{
    int recordings = 0;
    qint64 lengthMs = 0;
    for (const ChannelDay& day : qAsConst(m_days)) {
        recordings += day.chosen.size();
        for (const int index : day.chosen)
            lengthMs += day.recordings.at(index).begin.msecsTo(day.recordings.at(index).end);
    }
    QString words;
    QString reason;
    if (recordings > 0)
        words = SpanWords::recordings(recordings) + QLatin1String(", ") + SpanWords::length(lengthMs);
    else if (m_span && m_span->beginMs >= QDateTime::currentMSecsSinceEpoch())
        reason = tr("The span has not come yet");
    else if (m_span && m_days.isEmpty())
        reason = tr("No channel is chosen");
    else if (m_span)
        words = SpanWords::span(*m_span, m_axis.day()) + QLatin1String("  ") + SpanWords::length(m_span->lengthMs()) +
                QLatin1String(", ") + SpanWords::channels(m_days.size());
    else
        reason = tr("Check recordings or mark a span first");
    m_chosenWords->setText(words.isEmpty() && m_span ? reason : words);
    m_download->setEnabled(!words.isEmpty());
    m_download->setToolTip(words.isEmpty() ? reason : tr("Puts it into the download queue"));
}

void PlaybackPage::download()
{
    QVector<QueueRequests::Recording> recordings;
    QVector<ChannelRef> channels;
    for (const ChannelDay& day : qAsConst(m_days)) {
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
    for (const ChannelDay& day : qAsConst(m_days)) {
        recordings += day.recordings.size();
        found += day.state == ChannelDay::State::Found;
        failed += day.state == ChannelDay::State::Failed;
        coveredMs += AxisRow::coveredMs(m_axis, day.recordings);
    }
    QString words;
    if (found > 0)
        words = SpanWords::recordings(recordings) + QLatin1String(", ") + SpanWords::length(coveredMs);
    if (recordings > RecordingsTable::mostRows)
        words += tr(", the first %1 are listed").arg(RecordingsTable::mostRows);
    if (failed > 0)
        words += (words.isEmpty() ? QString() : QStringLiteral(", ")) +
                 tr("%1 of %2 channels could not be searched").arg(failed).arg(m_days.size());
    m_header->setSummary(words);
}

void PlaybackPage::showBody()
{
    const bool isSearching = m_daySearch.isRunning();
    m_search->setText(isSearching ? tr("Cancel") : tr("Search"));
    m_search->setEnabled(!m_days.isEmpty());
    if (m_table->rows() > 0) {
        m_body->setCurrentWidget(m_table);
        return;
    }
    const QString day = dayText(m_axis.day());
    const auto again = [this] { search(); };
    const auto failed = std::find_if(m_days.cbegin(), m_days.cend(), [](const ChannelDay& channel) {
        return channel.state == ChannelDay::State::Failed;
    });
    if (isSearching)
        showState(QStringLiteral("search"), tr("The recordings of %1 are searched").arg(day),
                  tr("They appear here channel by channel."));
    else if (showFailedRecorder())
        return;
    else if (m_days.isEmpty())
        showState(QStringLiteral("camera"), tr("No channel is chosen"),
                  tr("Check up to %1 channels, pick a day and press Search.").arg(RecorderTree::mostChannels));
    else if (failed != m_days.cend() &&
             RecorderAddress::isDirect(vemo_data::DevsMgrData::instance().devRecord(failed->channel.devId).address))
        showState(QStringLiteral("mark-span"), tr("This recorder has no list of recordings"),
                  tr("Mark a span on the axis, or type two times, and press Download."));
    else if (failed != m_days.cend())
        showState(QStringLiteral("warning"), tr("The recordings could not be searched"), failed->error.message,
                  tr("Retry"), again);
    else if (m_days.first().state == ChannelDay::State::Found)
        showState(QStringLiteral("calendar"), tr("There is no recording on %1").arg(day),
                  tr("Pick another day, or check other channels."));
    else
        showState(QStringLiteral("search"), tr("%1 was not searched yet").arg(day),
                  tr("Press Search to see what the recorder has."), tr("Search"), again);
}

/// The recorder of the checked channels, or else the one under the cursor, when it is not logged in.
bool PlaybackPage::showFailedRecorder()
{
    const QString current = m_column->tree()->currentDevId();
    QStringList candidates;
    for (const ChannelDay& day : qAsConst(m_days))
        candidates.append(day.channel.devId);
    if (!current.isEmpty())
        candidates.prepend(current);
    for (const QString& devId : qAsConst(candidates)) {
        const RecorderLogins::Login login = m_logins->login(devId);
        const LoginWords::Failure failure = LoginWords::failureOf(login);
        if (failure.title.isEmpty())
            continue;
        const QString name = vemo_data::DevsMgrData::instance().getDevInfoById(devId).name;
        const bool wantsTrust = login.phase == RecorderLogins::Phase::CertificateUnknown;
        const bool wantsForm = login.phase == RecorderLogins::Phase::PasswordWanted ||
                               login.error.kind == vms_sdk::ErrorKind::LoginRefused;
        const QString deed = wantsTrust ? tr("Trust this key") : wantsForm ? tr("Type the login") : tr("Retry");
        showState(LoginWords::stateOf(login).icon,
                  name.isEmpty() ? failure.title : QString(name % QLatin1String(": ") % failure.title),
                  failure.cause + QLatin1Char('\n') + failure.advice, deed, [this, devId, wantsTrust, wantsForm] {
                      if (wantsTrust)
                          m_logins->trust(devId);
                      else if (wantsForm)
                          m_column->changeRecorder(devId);
                      else
                          m_logins->retry(devId);
                  });
        return true;
    }
    return false;
}

void PlaybackPage::showState(const QString& icon, const QString& missing, const QString& advice, const QString& deed,
                             const std::function<void()>& act)
{
    const QString key = QStringList{icon, missing, advice, deed}.join(QLatin1Char('\n'));
    if (key != m_stateKey || !m_state) {
        if (m_state) {
            m_body->removeWidget(m_state);
            m_state->deleteLater();
        }
        m_state = new vemo_base::EmptyStateWt(icon, missing, advice, deed);
        // Wrapped words need their height said, or the last lines, such as those of a fingerprint, are cut.
        const QList<QLabel*> labels = m_state->findChildren<QLabel*>();
        for (QLabel* label : labels) {
            label->ensurePolished();
            label->setMinimumHeight(label->heightForWidth(label->minimumWidth()));
        }
        // The page's primary button is Download.
        if (auto* button = m_state->findChild<QPushButton*>())
            button->setProperty("kind", QVariant());
        if (act)
            connect(m_state, &vemo_base::EmptyStateWt::signalButtonClicked, this, act, Qt::QueuedConnection);
        m_body->addWidget(m_state);
        m_stateKey = key;
    }
    m_body->setCurrentWidget(m_state);
}

} // namespace vemo_client
