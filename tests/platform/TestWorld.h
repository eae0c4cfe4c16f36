#pragma once

#include <Database.h>
#include <DataFolder.h>
#include <SettingsFile.h>

#include <QTemporaryDir>

/// A data folder of its own for one test, with no database open before and after.
class TestWorld final
{
public:
    TestWorld()
    {
        vemo_data::Database::instance().close();
        vemo_data::DataFolder::setRoot(m_dir.path());
    }

    ~TestWorld()
    {
        vemo_data::SettingsFile::instance().flush();
        vemo_data::Database::instance().close();
        vemo_data::DataFolder::setRoot(QString());
    }

    TestWorld(const TestWorld&) = delete;
    TestWorld& operator=(const TestWorld&) = delete;

    QString path(const QString& name) const { return m_dir.filePath(name); }
    QString databaseFile() const { return vemo_data::DataFolder::databaseFile(); }

private:
    QTemporaryDir m_dir;
};
