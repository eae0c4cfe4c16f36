#include "ProgramLog.h"

#include "SecretMask.h"

#include <DataFolder.h>

#include <QDateTime>
#include <QFile>
#include <QMutex>
#include <QMutexLocker>
#include <QQueue>
#include <QThread>
#include <QWaitCondition>

#include <utility>

namespace vemo_worker {

namespace {

constexpr int queueLimit = 2048;
constexpr int longestText = 65536; ///< letters that are looked through for secrets
constexpr int longestLine = 8192;  ///< letters that are kept of them
constexpr int fatalWaitMs = 2000;

struct Line
{
    QDateTime time;
    ProgramLog::Level level = ProgramLog::Level::Unknown;
    QByteArray category;
    QString text;
};

char letterOf(ProgramLog::Level level)
{
    switch (level) {
    case ProgramLog::Level::Debug:
        return 'D';
    case ProgramLog::Level::Warning:
        return 'W';
    case ProgramLog::Level::Error:
        return 'E';
    default:
        return 'I';
    }
}

ProgramLog::Level levelOfType(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return ProgramLog::Level::Debug;
    case QtInfoMsg:
        return ProgramLog::Level::Information;
    case QtWarningMsg:
        return ProgramLog::Level::Warning;
    default:
        return ProgramLog::Level::Error;
    }
}

/// One line, whatever a device put into it: what would begin another one, or move the cursor, is spelled out.
QString onOneLine(const QString& text)
{
    QString line;
    line.reserve(text.size());
    for (const QChar letter : text) {
        const ushort code = letter.unicode();
        const bool isControl = code < 0x20 || (code >= 0x7f && code < 0xa0) || (code >= 0x2028 && code <= 0x202e) ||
                               (code >= 0x2066 && code <= 0x2069);
        if (isControl)
            line += QStringLiteral("\\u%1").arg(code, 4, 16, QLatin1Char('0'));
        else
            line += letter;
    }
    return line;
}

QString safe(const QString& text)
{
    return SecretMask::masked(text.left(longestText)).left(longestLine);
}

QString pathOf(const QString& folder, int age)
{
    return age == 0 ? QString(folder % QStringLiteral("/vemo.log"))
                    : QStringLiteral("%1/vemo.%2.log").arg(folder).arg(age);
}

} // namespace

/// Holds the queue and the file. The queue is guarded by the mutex, the file is the thread's own.
class ProgramLog::Writer final : public QThread
{
public:
    Writer(const QString& folder, Level level, qint64 fileBytes)
        : m_folder(folder)
        , m_level(level)
        , m_fileBytes(fileBytes)
    {
        setObjectName(QStringLiteral("log"));
    }

    bool open()
    {
        m_file.setFileName(pathOf(m_folder, 0));
        return vemo_data::DataFolder::makePrivateFile(m_file.fileName()) &&
               m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
    }

    QString path() const { return pathOf(m_folder, 0); }
    Level level() const { return m_level; }

    void push(Line line)
    {
        const QMutexLocker lock(&m_mutex);
        if (m_queue.size() >= queueLimit) {
            ++m_leftOut;
            return;
        }
        m_queue.enqueue(std::move(line));
        m_changed.wakeAll();
    }

    void waitWritten()
    {
        QMutexLocker lock(&m_mutex);
        while (!m_queue.isEmpty() || m_isWriting) {
            if (!m_written.wait(&m_mutex, fatalWaitMs))
                return;
        }
    }

    void end()
    {
        {
            const QMutexLocker lock(&m_mutex);
            m_ends = true;
            m_changed.wakeAll();
        }
        wait();
    }

protected:
    void run() override
    {
        QMutexLocker lock(&m_mutex);
        while (!m_ends || !m_queue.isEmpty()) {
            if (m_queue.isEmpty()) {
                m_changed.wait(&m_mutex);
                continue;
            }
            QQueue<Line> lines;
            lines.swap(m_queue);
            const int leftOut = std::exchange(m_leftOut, 0);
            m_isWriting = true;
            lock.unlock();
            for (const Line& line : qAsConst(lines))
                writeUnlessRepeated(line);
            if (leftOut > 0)
                writeUnlessRepeated(own(QStringLiteral("%1 lines were left out").arg(leftOut)));
            lock.relock();
            m_isWriting = false;
            if (m_queue.isEmpty())
                m_written.wakeAll();
        }
        lock.unlock();
        tellRepeats();
    }

private:
    static Line own(const QString& text)
    {
        return {QDateTime::currentDateTime(), Level::Information, QByteArrayLiteral("vemo.log"), text};
    }

    void tellRepeats()
    {
        if (m_repeats > 0)
            write(own(QStringLiteral("the line above came %1 more times").arg(m_repeats)));
        m_repeats = 0;
    }

    void writeUnlessRepeated(const Line& line)
    {
        if (line.text == m_last.text && line.category == m_last.category) {
            ++m_repeats;
            return;
        }
        tellRepeats();
        write(line);
        m_last = line;
    }

    void write(const Line& line)
    {
        const QByteArray bytes = line.time.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")).toLatin1() + ' ' +
                                 letterOf(line.level) + ' ' + line.category + ' ' + onOneLine(line.text).toUtf8() +
                                 '\n';
        if (m_file.isOpen() && m_file.size() > 0 && m_file.size() + bytes.size() > m_fileBytes)
            rotate();
        if (m_file.isOpen() || open())
            m_file.write(bytes);
    }

    void rotate()
    {
        m_file.close();
        QFile::remove(pathOf(m_folder, files - 1));
        for (int age = files - 2; age >= 0; --age)
            QFile::rename(pathOf(m_folder, age), pathOf(m_folder, age + 1));
        open();
    }

    const QString m_folder;
    const Level m_level;
    const qint64 m_fileBytes;

    // By the mutex:
    QMutex m_mutex;
    QWaitCondition m_changed;
    QWaitCondition m_written;
    QQueue<Line> m_queue;
    int m_leftOut = 0;
    bool m_isWriting = false;
    bool m_ends = false;

    // Of the thread:
    QFile m_file;
    Line m_last;
    int m_repeats = 0;
};

namespace {

/// Lines may come from any thread while the log starts or stops.
QMutex& gate()
{
    static QMutex mutex;
    return mutex;
}

QtMessageHandler before = nullptr;

} // namespace

ProgramLog::ProgramLog() = default;

ProgramLog::~ProgramLog()
{
    stop();
}

ProgramLog& ProgramLog::instance()
{
    static ProgramLog log;
    return log;
}

ProgramLog::Level ProgramLog::levelOf(const QString& name)
{
    if (name == QLatin1String("debug"))
        return Level::Debug;
    if (name == QLatin1String("info"))
        return Level::Information;
    if (name == QLatin1String("warning"))
        return Level::Warning;
    return name == QLatin1String("error") ? Level::Error : Level::Unknown;
}

bool ProgramLog::start(const QString& folder, Level level, qint64 fileBytes)
{
    stop();
    auto writer = std::make_unique<Writer>(folder, level, fileBytes);
    if (!writer->open())
        return false;
    writer->start();
    {
        const QMutexLocker lock(&gate());
        m_writer = std::move(writer);
    }
    before = qInstallMessageHandler(take);
    return true;
}

void ProgramLog::stop()
{
    std::unique_ptr<Writer> writer;
    {
        const QMutexLocker lock(&gate());
        writer = std::move(m_writer);
    }
    if (!writer)
        return;
    qInstallMessageHandler(before);
    writer->end();
}

QString ProgramLog::path() const
{
    const QMutexLocker lock(&gate());
    return m_writer ? m_writer->path() : QString();
}

void ProgramLog::write(Level level, const char* category, const QString& text)
{
    const QMutexLocker lock(&gate());
    if (m_writer && level >= m_writer->level())
        m_writer->push({QDateTime::currentDateTime(), level, QByteArray(category), safe(text)});
}

void ProgramLog::take(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    const QString masked = safe(text);
    {
        const QMutexLocker lock(&gate());
        Writer* writer = instance().m_writer.get();
        const Level level = levelOfType(type);
        if (writer && level >= writer->level()) {
            writer->push({QDateTime::currentDateTime(), level, QByteArray(context.category), masked});
            if (type == QtFatalMsg)
                writer->waitWritten();
        }
    }
    if (before)
        before(type, context, masked);
}

} // namespace vemo_worker
