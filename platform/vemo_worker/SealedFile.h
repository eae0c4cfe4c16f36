#pragma once

#include <QByteArray>
#include <QString>

namespace vemo_worker {

/// A small file that lies sealed under the key of ClientSecretKey, behind a first line that says what it is. Waits for
/// the disk. A write replaces the file as a whole or leaves it, and nobody but the owner may read it.
class SealedFile final
{
public:
    enum class State { Good, Absent, NoKey, Damaged };

    /// `magic` ends with a line break and is part of what is sealed, so that no file passes for another.
    SealedFile(QString path, QByteArray magic);

    /// `problem` gets a sentence with NoKey and Damaged.
    State read(QByteArray* plain, QString* problem = nullptr) const;
    bool write(const QByteArray& plain) const;
    /// Keeps what can't be opened under a dated name.
    bool setAside() const;

    const QString& path() const { return m_path; }

private:
    QString m_path;
    QByteArray m_magic;
};

} // namespace vemo_worker
