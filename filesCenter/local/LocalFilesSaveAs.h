#pragma once

#include <QObject>
#include <QPair>
#include <QStringList>
#include <QUuid>

#include <functional>

class QWidget;

namespace VCOMMON {
class VCopyLocalFiles;
}

namespace vemo_filesCenter {

/// Copies local files into a folder that the person chooses. Covers the window meanwhile, with the progress and a
/// button that ends it, and shows the folder at the end. What failed is told once a batch. One batch at a time. GUI
/// thread, owned by the page.
class LocalFilesSaveAs final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalFilesSaveAs)

public:
    struct File
    {
        QString path;
        QString copyName; ///< of the copy; two equal names both survive
    };
    /// What a file is called where it could not be saved: its channel, and its time.
    using Describe = std::function<QPair<QString, QString>(const QString& path)>;

    explicit LocalFilesSaveAs(QWidget* page);
    ~LocalFilesSaveAs() override;

    /// Asks for the folder and begins. Returns when the folder was chosen.
    void save(const QList<File>& files, Describe describe);

private:
    void copy(const QList<File>& files);
    void showProgress(int fileNumber, int fileCount, int percent);
    void noteFailure(const QString& source, const QString& reason);
    void finish();
    void tellFailures();
    void unveil();

    QWidget* m_page;
    VCOMMON::VCopyLocalFiles* m_copier;
    Describe m_describe;
    QStringList m_failures; ///< of the batch, a sentence each
    QString m_saveAsDir;
    QUuid m_veil;
};

} // namespace vemo_filesCenter
