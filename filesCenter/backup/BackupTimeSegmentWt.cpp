#include "BackupTimeSegmentWt.h"

#include <Icons.h>
#include <Theme.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QTimeEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace vemo_filesCenter {

namespace {

constexpr int fieldWidth = 92;
constexpr int smallPixels = 12;

} // namespace

BackupTimeSegmentWt::BackupTimeSegmentWt(QWidget* parent)
    : QWidget(parent)
    , m_name(new QLabel(tr("Time Segment 1"), this))
    , m_start(makeField(QStringLiteral("startTime")))
    , m_end(makeField(QStringLiteral("endTime")))
    , m_warning(new QLabel(this))
{
    auto* remove = new QToolButton(this);
    remove->setObjectName(QStringLiteral("deleteBt"));
    remove->setIcon(vemo_base::Icons::icon(QStringLiteral("close")));
    remove->setAutoRaise(true);
    remove->setToolTip(tr("delete time segment"));
    remove->setAccessibleName(remove->toolTip());
    connect(remove, &QToolButton::clicked, this, [this] { emit signalDeleteBtClicked(m_index); });

    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(m_name, 1);
    row->addWidget(m_start);
    row->addWidget(new QLabel(tr("To"), this));
    row->addWidget(m_end);
    row->addWidget(remove);
    QFont small = m_warning->font();
    small.setPixelSize(smallPixels);
    m_warning->setFont(small);
    m_warning->setWordWrap(true);
    m_warning->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addLayout(row);
    layout->addWidget(m_warning);
    connect(&vemo_base::Theme::instance(), &vemo_base::Theme::signalChanged, this, &BackupTimeSegmentWt::showOrder);
}

QTimeEdit* BackupTimeSegmentWt::makeField(const QString& objectName)
{
    auto* field = new QTimeEdit(QTime(0, 0), this);
    field->setObjectName(objectName);
    field->setDisplayFormat(QStringLiteral("HH:mm"));
    field->setMinimumWidth(fieldWidth);
    connect(field, &QTimeEdit::timeChanged, this, &BackupTimeSegmentWt::showOrder);
    return field;
}

void BackupTimeSegmentWt::setIndex(int index)
{
    m_index = index;
    m_name->setText(tr("Time Segment %1").arg(index + 1));
    m_start->setAccessibleName(tr("%1, start").arg(m_name->text()));
    m_end->setAccessibleName(tr("%1, end").arg(m_name->text()));
}

void BackupTimeSegmentWt::setTimes(const QTime& start, const QTime& end)
{
    m_start->setTime(start);
    m_end->setTime(end);
}

QTime BackupTimeSegmentWt::startTime() const
{
    return m_start->time();
}

QTime BackupTimeSegmentWt::endTime() const
{
    return m_end->time();
}

void BackupTimeSegmentWt::showOrder()
{
    const bool isBackward = m_start->time() > m_end->time();
    for (QTimeEdit* field : {m_start, m_end}) {
        field->setProperty("invalid", isBackward);
        field->update();
    }
    QPalette own;
    own.setColor(QPalette::WindowText, vemo_base::Theme::instance().color(vemo_base::Token::Warning));
    m_warning->setPalette(own);
    m_warning->setText(isBackward
                           ? tr("This segment starts after its end: it holds no recording. Let it end at 23:59 and add "
                                "another one from 00:00.")
                           : QString());
    m_warning->setVisible(isBackward);
}

} // namespace vemo_filesCenter
