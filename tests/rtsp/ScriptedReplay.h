#pragma once

#include "ScriptedRecorder.h"
#include "StreamLog.h"

#include <QTest>

#include <functional>

Q_DECLARE_METATYPE(rtptest::Script)

namespace rtptest {

constexpr int waitMs = 10'000;

inline vms_sdk::rtsp::StreamRequest requestTo(const ScriptedRecorder& recorder, int pictures = 50)
{
    vms_sdk::rtsp::StreamRequest request;
    request.url = recorder.url();
    request.user = QStringLiteral("viewer");
    request.password = QStringLiteral("s3cret!word");
    request.beginNs = ScriptedRecorder::beginNs;
    request.endNs = ScriptedRecorder::beginNs + pictures * ScriptedRecorder::frameNs;
    request.rateControl = false;
    request.answerTimeoutMs = 1'000;
    request.connectTimeoutMs = 2'000;
    request.silenceTimeoutMs = 400;
    return request;
}

/// Every picture once, in order, unaltered.
inline void compareWithSent(const ScriptedRecorder& recorder, const StreamLog& log, int pictures)
{
    QVERIFY(log.batches.readable);
    QCOMPARE(static_cast<int>(log.batches.frames.size()), pictures);
    for (int i = 0; i < pictures; ++i) {
        const BatchLog::Frame& frame = log.batches.frames[static_cast<std::size_t>(i)];
        const QByteArray sent = recorder.payload(i);
        QCOMPARE(frame.header.timeNs, ScriptedRecorder::beginNs + i * ScriptedRecorder::frameNs);
        QVERIFY2(frame.payload == lengthPrefixed({Bytes(sent.begin(), sent.end())}),
                 "a picture was altered on the way");
    }
}

/// A replay from a recorder that follows a script; the request may be changed before it is started.
struct Replay
{
    explicit Replay(const Script& script, int pictures = 50,
                    const std::function<void(vms_sdk::rtsp::StreamRequest*)>& change = {})
        : recorder(script)
        , client([&] {
            vms_sdk::rtsp::StreamRequest request = requestTo(recorder, pictures);
            if (change)
                change(&request);
            return request;
        }())
        , log(client)
    {}

    bool isStartedAndEnds()
    {
        client.start();
        return ends();
    }
    bool ends()
    {
        return QTest::qWaitFor([this] { return log.hasEnded(); }, waitMs);
    }

    ScriptedRecorder recorder;
    vms_sdk::rtsp::StreamClient client;
    StreamLog log;
};

} // namespace rtptest
