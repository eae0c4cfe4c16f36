#pragma once

#include <QByteArray>

#include <memory>

namespace VCOMMON {

/// A SHA-256 (FIPS 180-4) that grows with what is added; for one thread.
class Sha256 final
{
public:
    static constexpr int bytes = 32;

    Sha256();
    ~Sha256();
    Q_DISABLE_COPY_MOVE(Sha256)

    void add(const char* data, qint64 size);
    /// What result() would tell now; the sum goes on.
    QByteArray soFar() const;
    /// 32 bytes; empty when the crypto library refused at some point. Ends the sum.
    QByteArray result();

private:
    struct Context;
    std::unique_ptr<Context> m_context;
};

} // namespace VCOMMON
