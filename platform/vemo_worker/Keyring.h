#pragma once

#include <QString>

#include <functional>

namespace vemo_worker {

/// A keyring that keeps texts by name. Asynchronous: every function returns at once and answers once, later, on the
/// thread that called it.
class Keyring
{
public:
    enum class Result { Done, NotFound, Unavailable };
    using Answer = std::function<void(Result result, const QString& text)>;

    Keyring() = default;
    Keyring(const Keyring&) = delete;
    Keyring& operator=(const Keyring&) = delete;
    virtual ~Keyring() = default;

    virtual void read(const QString& name, Answer answer) = 0;
    virtual void write(const QString& name, const QString& text, Answer answer) = 0;
    virtual void remove(const QString& name, Answer answer) = 0;
};

} // namespace vemo_worker
