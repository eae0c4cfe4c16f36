#include "LiveViews.h"

#include <BaseTools.h>
#include <UiSettings.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace vemo_client {

namespace {

constexpr int mostTiles = 9;

QString viewsSetting()
{
    return QStringLiteral("live_views");
}

QString lastSetting()
{
    return QStringLiteral("live_last");
}

QJsonObject toJson(const LiveView& view)
{
    QJsonArray channels;
    for (const ChannelRef& channel : view.channels)
        channels.append(channel.devId.isEmpty()
                            ? QString()
                            : vemo_base::BaseTools::instance().formatChannelId(channel.devId, channel.channelNo));
    return {{QStringLiteral("name"), view.name},
            {QStringLiteral("tiles"), view.tileCount},
            {QStringLiteral("channels"), channels}};
}

LiveView fromJson(const QJsonObject& json)
{
    LiveView view;
    view.name = LiveViews::legalName(json[QStringLiteral("name")].toString());
    const int tiles = json[QStringLiteral("tiles")].toInt();
    view.tileCount = tiles == 1 || tiles == 9 ? tiles : 4;
    const QJsonArray channels = json[QStringLiteral("channels")].toArray();
    for (int i = 0; i < channels.size() && i < mostTiles; ++i) {
        const auto parts = vemo_base::BaseTools::instance().formatChannelId(channels.at(i).toString());
        view.channels.append(parts.first.isEmpty() ? ChannelRef() : ChannelRef{parts.first, parts.second});
    }
    view.channels.resize(mostTiles);
    return view;
}

QByteArray textOf(const QString& setting)
{
    return vemo_worker::UiSettings::instance().value(setting).toString().toUtf8();
}

void keepText(const QString& setting, const QJsonDocument& document)
{
    vemo_worker::UiSettings::instance().setValue(setting, QString::fromUtf8(document.toJson(QJsonDocument::Compact)));
}

} // namespace

LiveViews::LiveViews()
{
    const QJsonArray views = QJsonDocument::fromJson(textOf(viewsSetting())).array();
    for (int i = 0; i < views.size() && m_views.size() < mostViews; ++i) {
        const LiveView view = fromJson(views.at(i).toObject());
        if (!view.name.isEmpty() && indexOf(view.name) < 0)
            m_views.append(view);
    }
}

QString LiveViews::legalName(const QString& text)
{
    QString name;
    for (const QChar letter : text) {
        if (letter.isPrint() || letter.isSurrogate())
            name.append(letter);
    }
    return name.simplified().left(mostNameChars);
}

int LiveViews::indexOf(const QString& name) const
{
    const auto found = std::find_if(m_views.cbegin(), m_views.cend(), [&name](const LiveView& view) {
        return view.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == m_views.cend() ? -1 : static_cast<int>(found - m_views.cbegin());
}

bool LiveViews::save(const LiveView& view)
{
    const int index = indexOf(view.name);
    if (view.name.isEmpty() || (index < 0 && m_views.size() >= mostViews))
        return false;
    if (index >= 0)
        m_views[index] = view;
    else
        m_views.append(view);
    sortAndKeep();
    return true;
}

bool LiveViews::rename(const QString& from, const QString& to)
{
    const int index = indexOf(from);
    const int taken = indexOf(to);
    if (index < 0 || to.isEmpty() || (taken >= 0 && taken != index))
        return false;
    m_views[index].name = to;
    sortAndKeep();
    return true;
}

void LiveViews::remove(const QString& name)
{
    const int index = indexOf(name);
    if (index < 0)
        return;
    m_views.removeAt(index);
    sortAndKeep();
}

void LiveViews::sortAndKeep()
{
    std::sort(m_views.begin(), m_views.end(), [](const LiveView& one, const LiveView& other) {
        return vemo_base::BaseTools::instance().strLessThan(one.name, other.name);
    });
    QJsonArray views;
    for (const LiveView& view : qAsConst(m_views))
        views.append(toJson(view));
    keepText(viewsSetting(), QJsonDocument(views));
}

LiveView LiveViews::lastShown()
{
    return fromJson(QJsonDocument::fromJson(textOf(lastSetting())).object());
}

void LiveViews::keepLastShown(const LiveView& view)
{
    keepText(lastSetting(), QJsonDocument(toJson(view)));
}

} // namespace vemo_client
