#include "SettingsSection.h"

#include "SettingsGroup.h"

#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int margin = 24;
constexpr int groupGap = 24;
constexpr int topMargin = 4;

} // namespace

SettingsSection::SettingsSection(const QString& key, const QString& title, const QString& icon, QWidget* parent)
    : QWidget(parent)
    , m_key(key)
    , m_title(title)
    , m_icon(icon)
    , m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins(margin, topMargin, margin, margin);
    m_layout->setSpacing(groupGap);
    m_layout->addStretch(1);
}

SettingsGroup* SettingsSection::addGroup(const QString& title, const QString& note)
{
    auto* group = new SettingsGroup(title, note, this);
    m_layout->insertWidget(m_layout->count() - 1, group);
    m_groups.append(group);
    connect(group, &SettingsGroup::signalEdited, this, &SettingsSection::signalEdited);
    return group;
}

void SettingsSection::addPage(QWidget* page)
{
    m_layout->insertWidget(m_layout->count() - 1, page);
}

QVector<SettingField*> SettingsSection::fields() const
{
    QVector<SettingField*> all;
    for (const SettingsGroup* group : m_groups)
        all += group->fields();
    return all;
}

} // namespace vemo_client
