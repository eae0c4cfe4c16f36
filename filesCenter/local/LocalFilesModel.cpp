#include "LocalFilesModel.h"

#include "FileIconProvider.h"

#include <pictures/Thumbnails.h>
#include <SystemAssistant.h>

#include <QDir>

namespace vemo_filesCenter {

namespace {

const QStringList& sharedFilters()
{
    static const QStringList filters{QStringLiteral("*.mp4"), QStringLiteral("*.jpg"), QStringLiteral("*.png")};
    return filters;
}

} // namespace

LocalFilesModel::LocalFilesModel(FileIconProvider* icons, QObject* parent)
    : QFileSystemModel(parent)
{
    setIconProvider(icons);
    setReadOnly(true);
    setResolveSymlinks(false);
    setFilter(QDir::Files | QDir::NoDotAndDotDot);
    setNameFilters(sharedFilters());
    setNameFilterDisables(false);
}

QModelIndex LocalFilesModel::openFolder(const QString& path)
{
    if (path == rootPath())
        setRootPath(QString()); // or else a folder that was removed and made anew is not looked at
    const QModelIndex root = setRootPath(path);
    // Makes the model look at every file of the folder anew.
    setFilter(QDir::AllEntries);
    setFilter(QDir::Files | QDir::NoDotAndDotDot);
    return root;
}

void LocalFilesModel::setKeyword(const QString& keyword)
{
    if (keyword.isEmpty()) {
        setNameFilters(sharedFilters());
        return;
    }
    QStringList filters;
    for (const QString& filter : sharedFilters())
        filters.append(QStringLiteral("*%1%2").arg(keyword, filter));
    setNameFilters(filters);
}

void LocalFilesModel::removeFile(const QModelIndex& index)
{
    const QString path = filePath(index);
    vemo_base::Thumbnails::instance().forget({path});
    vemo_worker::SystemAssistant::instance().removeFiles({path}, this, [this](const QStringList& left) {
        for (const QString& remaining : left)
            emit signalRemoveFailed(remaining);
    });
}

QVariant LocalFilesModel::data(const QModelIndex& index, int role) const
{
    return QFileSystemModel::data(index, role == Qt::ToolTipRole ? static_cast<int>(FileNameRole) : role);
}

Qt::ItemFlags LocalFilesModel::flags(const QModelIndex& index) const
{
    return QFileSystemModel::flags(index) & ~(Qt::ItemIsEditable | Qt::ItemIsDropEnabled);
}

} // namespace vemo_filesCenter
