#include "NoticesModel.h"

#include <Notices.h>

#include <QStringList>

namespace vemo_client {

namespace {

using vemo_base::Notice;
using vemo_base::Notices;

QString timeWords(const QDateTime& time)
{
    const bool isToday = time.date() == QDate::currentDate();
    return time.toString(isToday ? QStringLiteral("HH:mm:ss") : QStringLiteral("yyyy-MM-dd HH:mm"));
}

QStringList actionWords(const Notice& notice)
{
    QStringList words;
    for (const Notice::Action& action : notice.actions)
        words.append(action.text);
    return words;
}

} // namespace

NoticesModel::NoticesModel(QObject* parent)
    : QAbstractListModel(parent)
{
    const auto reset = [this] {
        beginResetModel();
        endResetModel();
    };
    connect(&Notices::instance(), &Notices::signalNoticeAdded, this, reset);
    connect(&Notices::instance(), &Notices::signalCleared, this, reset);
}

int NoticesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Notices::instance().all().size();
}

QVariant NoticesModel::data(const QModelIndex& index, int role) const
{
    if (index.row() < 0 || index.row() >= rowCount())
        return {};
    const Notice& notice = Notices::instance().all().at(index.row());
    const QString title = notice.repeats > 1 ? tr("%1 (%2 times)").arg(notice.title).arg(notice.repeats) : notice.title;
    switch (role) {
    case Qt::DisplayRole:
        return title;
    case Qt::AccessibleTextRole:
        return QStringList{title, notice.text, timeWords(notice.time)}.join(QLatin1String(", "));
    case KindRole:
        return static_cast<int>(notice.kind);
    case TextRole:
        return notice.text;
    case TimeRole:
        return timeWords(notice.time);
    case ActionsRole:
        return actionWords(notice);
    default:
        return {};
    }
}

void NoticesModel::runAction(int row, int action) const
{
    if (row < 0 || row >= rowCount())
        return;
    const Notice notice = Notices::instance().all().at(row);
    if (action >= 0 && action < notice.actions.size() && notice.actions.at(action).run)
        notice.actions.at(action).run();
}

} // namespace vemo_client
