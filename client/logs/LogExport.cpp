#include "LogExport.h"

#include "CsvLine.h"
#include "LogWords.h"

#include <BaseTools.h>

#include <QThread>

#include <limits>

namespace vemo_client {

namespace {

using vemo_worker::FilesCenterLogs;

constexpr int pageEntries = 1000;

QByteArray lineOf(const FilesCenterLogs::Entry& entry)
{
    return CsvLine::of({vemo_base::BaseTools::instance().strDatetime(entry.time, true, true),
                        entry.time.toUTC().toString(Qt::ISODateWithMs), LogWords::kind(entry.kind),
                        LogWords::device(entry.device), QString::number(entry.channelNo),
                        LogWords::channel(entry.device, entry.channelNo, entry.channelName), entry.text});
}

} // namespace

/// The file, on its thread.
class LogExport::Writer final : public QObject
{
public:
    explicit Writer(const QString& path)
        : m_file(path)
    {}

    bool write(const QByteArray& bytes, bool isLast)
    {
        if (!m_file.isOpen() && !m_file.open(QIODevice::WriteOnly))
            return false;
        return m_file.write(bytes) == bytes.size() && (!isLast || m_file.commit());
    }

    QString error() const { return m_file.errorString(); }

private:
    QSaveFile m_file;
};

LogExport::LogExport(const QString& path, const FilesCenterLogs::Query& query, int total, QObject* parent)
    : QObject(parent)
    , m_path(path)
    , m_query(query)
    , m_total(total)
    , m_thread(std::make_unique<QThread>())
    , m_writer(new Writer(path))
{
    m_query.limit = pageEntries;
    m_query.offset = 0;
    m_query.beforeId = std::numeric_limits<qint64>::max();
    m_thread->setObjectName(QStringLiteral("log export"));
    m_writer->moveToThread(m_thread.get());
    connect(m_thread.get(), &QThread::finished, m_writer, &QObject::deleteLater);
}

LogExport::~LogExport()
{
    m_thread->quit();
    m_thread->wait();
    if (!m_thread->isFinished())
        delete m_writer; // the thread never ran
}

void LogExport::start()
{
    m_thread->start();
    askPage();
}

void LogExport::cancel()
{
    end(tr("The export was cancelled. Nothing was written."));
}

void LogExport::askPage()
{
    FilesCenterLogs::instance().query(m_query, this, [this](const QList<FilesCenterLogs::Entry>& entries) {
        if (!m_isOver)
            takePage(entries);
    });
}

void LogExport::takePage(const QList<FilesCenterLogs::Entry>& entries)
{
    QByteArray bytes;
    if (m_written == 0)
        bytes = CsvLine::byteOrderMark() + CsvLine::of({tr("Time"), tr("Time (UTC)"), tr("Kind"), tr("Device"),
                                                        tr("Channel number"), tr("Channel"), tr("Event")});
    for (const FilesCenterLogs::Entry& entry : entries)
        bytes += lineOf(entry);
    m_isLast = entries.size() < pageEntries;
    m_underWay = entries.size();
    if (!entries.isEmpty())
        m_query.beforeId = entries.last().id;
    QMetaObject::invokeMethod(
        m_writer,
        [this, writer = m_writer, bytes, isLast = m_isLast] {
            const bool ok = writer->write(bytes, isLast);
            const QString error = ok ? QString() : writer->error();
            QMetaObject::invokeMethod(
                this, [this, ok, error] { takeWritten(ok, error); }, Qt::QueuedConnection);
        },
        Qt::QueuedConnection);
}

void LogExport::takeWritten(bool ok, const QString& error)
{
    if (m_isOver)
        return;
    if (!ok) {
        end(tr("The file %1 could not be written: %2").arg(m_path, error));
        return;
    }
    m_written += m_underWay;
    emit signalProgress(m_written, m_total);
    if (m_isLast)
        end(QString());
    else
        askPage();
}

void LogExport::end(const QString& problem)
{
    if (m_isOver)
        return;
    m_isOver = true;
    emit signalEnded(problem, m_written);
}

} // namespace vemo_client
