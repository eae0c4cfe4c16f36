#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QSslConfiguration>
#include <QString>
#include <QTcpServer>
#include <QUrl>

#include <functional>

class QSslSocket;

/// A small ONVIF device in the test's own process: answers device, media, recording, search and replay operations over
/// HTTP, checks UsernameToken and HTTP digest like a device would, and misbehaves as its flags say. Lives on the thread
/// of the test.
class OnvifFake final : public QTcpServer
{
    Q_OBJECT

public:
    struct Flags
    {
        QString user = QStringLiteral("admin");
        QString password = QStringLiteral("s3cret&<word>");
        qint64 clockOffsetMs = 0; ///< device clock minus the true time; tokens older than 5 s on it are refused

        // Login.
        QByteArray httpChallenge; ///< answers 401 with this WWW-Authenticate until an Authorization comes
        bool refusesForEver = false;
        bool isLocked = false;

        // Transport.
        int redirects = 0; ///< that many answers are redirects, to redirectTo or to itself
        QByteArray redirectTo;
        QByteArray rawAnswer;    ///< sent in place of every answer
        qint64 endlessBytes = 0; ///< after rawAnswer, that many filler bytes, as fast as they go
        bool isSilent = false;   ///< takes the request and says nothing
        bool oneByteASecond = false;
        bool closesAfterAnswer = false;                                ///< without having said so
        std::function<QByteArray(const QByteArray& xml)> dressXml;     ///< what goes out in place of an envelope
        std::function<QByteArray(const QByteArray& answer)> dressHttp; ///< and in place of a whole answer

        // Services.
        QString toldHost; ///< in the service addresses, empty: the true one
        bool hasGetServices = true;
        bool hasReplay = true;
        bool hasEvents = true;
        bool refusesFilters = false;
        int endlessEvents = 0;     ///< pages of events that never complete, of this size each
        int endlessRecordings = 0; ///< the same of recordings, none of them the one that was asked for
        bool neverCompletes = false;
        QList<QByteArray> replayFaultCodes;
    };

    explicit OnvifFake(QObject* parent = nullptr);

    Flags flags;
    /// Results of an event search: ready-made tse Result elements.
    QList<QByteArray> events;
    QStringList recordingTokens{QStringLiteral("rec-1"), QStringLiteral("rec-2")};

    void useTls(const QSslConfiguration& configuration) { m_tls = configuration; }
    QUrl address() const;

    QList<QByteArray> requests;   ///< whole requests in the order they came, head and body
    QList<QByteArray> operations; ///< their operations
    int connections = 0;
    int count(const char* operation) const { return operations.count(QByteArray(operation)); }

    static QByteArray trackState(const QByteArray& recording, const QByteArray& track, const QByteArray& time,
                                 bool isPresent, bool isStartState = false);
    static QByteArray motion(const QByteArray& recording, const QByteArray& time, bool isActive);
    static QByteArray envelope(const QByteArray& body);
    static QByteArray fault(const QByteArray& subcode, const QByteArray& reason);

protected:
    void incomingConnection(qintptr handle) override;

private:
    void onReadyRead(QSslSocket* socket);
    void answer(QSslSocket* socket, const QByteArray& head, const QByteArray& body);
    void send(QSslSocket* socket, int status, const QByteArray& body, const QByteArray& headers = {});
    void trickle(QSslSocket* socket, const QByteArray& bytes);
    bool isTokenGood(const QByteArray& body) const;
    QByteArray operationAnswer(const QByteArray& operation, const QByteArray& body);
    QByteArray serviceAddresses() const;
    QByteArray eventPage();

    QSslConfiguration m_tls;
    QHash<QSslSocket*, QByteArray> m_buffers;
    int m_eventsSent = 0;
};
