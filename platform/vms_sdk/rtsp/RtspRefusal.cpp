#include "RtspRefusal.h"

#include "StreamClient.h"

namespace vms_sdk::rtsp {
namespace {

constexpr int maxReasonCharacters = 80;

/// The recorder's words, short and without what could disturb a line of text.
QString plain(const QByteArray& reason)
{
    QString text;
    for (const QChar c : QString::fromUtf8(reason).left(maxReasonCharacters))
        if (c.isPrint())
            text += c;
    return text;
}

} // namespace

Error refusalError(const RtspMessage& answer, const RtspRequest& request, const QString& host)
{
    const QString context = QString(QLatin1String(request.method) + QLatin1String(": ") +
                                    QString::number(answer.status) + QLatin1Char(' ') + plain(answer.reason));
    switch (answer.status) {
    case 404:
    case 410:
        return {ErrorKind::NotFound, StreamClient::tr("%1 does not know the requested recording or channel.").arg(host),
                context};
    case 457:
        return {ErrorKind::NotFound, StreamClient::tr("%1 has nothing recorded for the requested time.").arg(host),
                context};
    case 453:
        return {ErrorKind::LimitReached,
                StreamClient::tr("%1 has not enough bandwidth for a further stream.").arg(host), context};
    case 503:
        return {ErrorKind::LimitReached, StreamClient::tr("%1 has reached its limit of connections.").arg(host),
                context};
    case 461:
        return {ErrorKind::Unsupported, StreamClient::tr("%1 does not send over TCP.").arg(host), context};
    default:
        return {ErrorKind::Refused,
                StreamClient::tr("%1 refused the request: %2 %3")
                    .arg(host, QString::number(answer.status), plain(answer.reason)),
                context};
    }
}

Error loginError(DigestAuthenticator::Verdict verdict, const QString& host)
{
    using Verdict = DigestAuthenticator::Verdict;
    QString message;
    switch (verdict) {
    case Verdict::NoLogin:
        message = StreamClient::tr("%1 wants a login, and there is none for it.").arg(host);
        break;
    case Verdict::WrongLogin:
        message = StreamClient::tr("%1 refused user name or password.").arg(host);
        break;
    case Verdict::TooManyRounds:
        message = StreamClient::tr("%1 refused the login after the limit of %2 rounds.")
                      .arg(host, QString::number(DigestAuthenticator::maxRounds));
        break;
    case Verdict::BasicInClear:
        message =
            StreamClient::tr("%1 wants the password in clear text over a connection that is not secure.").arg(host);
        break;
    default:
        message = StreamClient::tr("%1 offers no way to log in that is known or as safe as before.").arg(host);
        break;
    }
    return {ErrorKind::LoginRefused, message, QStringLiteral("RTSP 401")};
}

} // namespace vms_sdk::rtsp
