#include "SettingsFile.h"

#include "DataFolder.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMutexLocker>
#include <QSettings>

namespace vemo_data {

namespace {

void flushFile()
{
    SettingsFile::instance().flush();
}

} // namespace

SettingsFile::SettingsFile()
{
    m_writer.setMaxThreadCount(1);
}

SettingsFile& SettingsFile::instance()
{
    static SettingsFile file;
    return file;
}

QVariant SettingsFile::value(const QString& key, const QVariant& defaultValue) const
{
    const QMutexLocker lock(&m_mutex);
    refresh();
    return m_values.value(key, defaultValue);
}

void SettingsFile::setValue(const QString& key, const QVariant& value)
{
    const QMutexLocker lock(&m_mutex);
    refresh();
    m_values.insert(key, value);
    ++m_unwritten;
    // QSettings is there as long as the application. The list of what is to be done at its end is empty behind it.
    qRemovePostRoutine(flushFile);
    qAddPostRoutine(flushFile);
    m_writer.start([this, path = m_path, key, value] {
        {
            QSettings settings(path, QSettings::IniFormat);
            settings.setValue(key, value);
        }
        const QMutexLocker written(&m_mutex);
        --m_unwritten;
    });
}

void SettingsFile::flush()
{
    m_writer.waitForDone();
}

SettingsFile::Look SettingsFile::look(const QString& path)
{
    const QFileInfo info(path);
    return {info.lastModified(), info.size()};
}

void SettingsFile::refresh() const
{
    const QString path = DataFolder::settingsFile();
    // Until what is under way is written the file is older than what is known of it.
    if (path == m_path && m_unwritten > 0)
        return;
    const Look now = look(path);
    if (path == m_path && now == m_look)
        return;
    m_path = path;
    m_look = now;
    m_values.clear();
    const QSettings settings(path, QSettings::IniFormat);
    for (const QString& key : settings.allKeys())
        m_values.insert(key, settings.value(key));
}

} // namespace vemo_data
