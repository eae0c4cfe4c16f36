#include "PowersEdit.h"

#include "PowerWords.h"

#include <SystemWorker.h>

#include <QCheckBox>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int spacing = 10;
constexpr int ringRoom = 4;

} // namespace

PowersEdit::PowersEdit(QWidget* parent)
    : QWidget(parent)
    , m_administrator(new QCheckBox(tr("Administrator: everything, other users included"), this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(ringRoom, ringRoom, ringRoom, ringRoom);
    layout->setSpacing(spacing);
    layout->addWidget(m_administrator);
    for (const PowerWords::Entry& entry : PowerWords::all()) {
        auto* box = new QCheckBox(entry.words, this);
        layout->addWidget(box);
        m_boxes.append(box);
        connect(box, &QCheckBox::toggled, this, [this, power = entry.power](bool isOn) {
            m_single = isOn ? m_single | power : m_single & ~power;
            emit signalChanged();
        });
    }
    setFocusProxy(m_administrator);
    connect(m_administrator, &QCheckBox::toggled, this, &PowersEdit::followAdministrator);
}

void PowersEdit::setPowers(int powers)
{
    const QSignalBlocker quiet(m_administrator);
    m_administrator->setChecked((powers & vemo_worker::PowerUsers) != 0);
    m_single = powers;
    followAdministrator();
}

int PowersEdit::powers() const
{
    if (isAdministrator())
        return vemo_worker::SystemWorker::allPowers;
    int mask = 0;
    for (const PowerWords::Entry& entry : PowerWords::all())
        mask |= entry.power;
    return m_single & mask;
}

bool PowersEdit::isAdministrator() const
{
    return m_administrator->isChecked();
}

void PowersEdit::followAdministrator()
{
    const QVector<PowerWords::Entry> entries = PowerWords::all();
    for (int i = 0; i < m_boxes.size(); ++i) {
        const QSignalBlocker quiet(m_boxes.at(i));
        m_boxes.at(i)->setChecked(isAdministrator() || (m_single & entries.at(i).power) != 0);
        m_boxes.at(i)->setEnabled(!isAdministrator());
        m_boxes.at(i)->setToolTip(isAdministrator() ? tr("An administrator may do everything.") : QString());
    }
    emit signalChanged();
}

} // namespace vemo_client
