#include "AuthChallenge.h"

#include <cstring>

namespace vms_sdk::rtsp {
namespace {

constexpr int maxChallenges = 16;

bool isTokenCharacter(char c)
{
    return c > ' ' && c < 0x7F && std::strchr("()<>@,;:\\\"/[]?={}", c) == nullptr;
}

class Scanner
{
public:
    explicit Scanner(const QByteArray& text)
        : m_text(text)
    {}

    bool atEnd() const { return m_at >= m_text.size(); }
    void skip(const char* characters)
    {
        while (!atEnd() && std::strchr(characters, m_text.at(m_at)) != nullptr && m_text.at(m_at) != '\0')
            ++m_at;
    }
    bool take(char c)
    {
        if (atEnd() || m_text.at(m_at) != c)
            return false;
        ++m_at;
        return true;
    }
    QByteArray token()
    {
        const int begin = m_at;
        while (!atEnd() && isTokenCharacter(m_text.at(m_at)))
            ++m_at;
        return m_text.mid(begin, m_at - begin);
    }
    QByteArray value()
    {
        if (!take('"')) {
            const int begin = m_at;
            while (!atEnd() && m_text.at(m_at) != ',' && m_text.at(m_at) != ' ')
                ++m_at;
            return m_text.mid(begin, m_at - begin);
        }
        QByteArray text;
        while (!atEnd() && m_text.at(m_at) != '"') {
            if (m_text.at(m_at) == '\\' && m_at + 1 < m_text.size())
                ++m_at;
            text += m_text.at(m_at++);
        }
        take('"');
        return text;
    }
    void skipToComma()
    {
        while (!atEnd() && m_text.at(m_at) != ',')
            ++m_at;
    }

private:
    const QByteArray& m_text;
    int m_at = 0;
};

} // namespace

QList<AuthChallenge> parseChallenges(const QByteArray& value)
{
    QList<AuthChallenge> challenges;
    Scanner scanner(value);
    while (true) {
        scanner.skip(" \t,");
        if (scanner.atEnd())
            return challenges;
        const QByteArray name = scanner.token().toLower();
        if (name.isEmpty()) {
            scanner.skipToComma();
            continue;
        }
        scanner.skip(" \t");
        if (scanner.take('=')) {
            scanner.skip(" \t");
            const QByteArray argument = scanner.value();
            // The first of two equal names counts: a later one must not weaken what stands.
            if (!challenges.isEmpty() && !challenges.last().parameters.contains(name))
                challenges.last().parameters.insert(name, argument);
            scanner.skipToComma();
            continue;
        }
        if (challenges.size() >= maxChallenges)
            return challenges;
        challenges.append({name, {}});
    }
}

} // namespace vms_sdk::rtsp
