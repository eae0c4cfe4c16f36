#pragma once

#include <QString>

#include <optional>

namespace vemo_worker {

/// The file "secrets" of the config folder: texts by name, sealed as one piece under the key of ClientSecretKey. Waits
/// for the disk, so it is used on the password thread. A write replaces the file as a whole or leaves it. A file that
/// can't be opened with the key is set aside under a dated name by the next write, never overwritten.
class SecretsFile final
{
public:
    SecretsFile() = delete;

    static std::optional<QString> read(const QString& name);
    static bool write(const QString& name, const QString& text);
    /// True as well when there was nothing.
    static bool remove(const QString& name);
};

} // namespace vemo_worker
