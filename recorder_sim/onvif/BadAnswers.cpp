#include "onvif/BadAnswers.h"

#include <QRandomGenerator>

namespace recorder_sim {
namespace {

constexpr int bombSize = 1'000'000;
constexpr char envelopeHead[] = "<s:Envelope xmlns:s=\"http://www.w3.org/2003/05/soap-envelope\"><s:Body>";
constexpr char envelopeTail[] = "</s:Body></s:Envelope>";

std::string bomb(const std::string& kind)
{
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    if (kind == "dtd")
        return out + "<!DOCTYPE s:Envelope SYSTEM \"http://127.0.0.1:9/nothing.dtd\">" + envelopeHead + envelopeTail;
    if (kind == "entities") {
        out += "<!DOCTYPE x [<!ENTITY e0 \"0123456789\">";
        for (int i = 1; i < 10; ++i) {
            const std::string inner = "&e" + std::to_string(i - 1) + ";";
            out += "<!ENTITY e" + std::to_string(i) + " \"";
            for (int j = 0; j < 10; ++j)
                out += inner;
            out += "\">";
        }
        return out + "]>" + envelopeHead + "&e9;" + envelopeTail;
    }
    out += envelopeHead;
    if (kind == "depth") {
        for (int i = 0; i < bombSize; ++i)
            out += "<a>";
        for (int i = 0; i < bombSize; ++i)
            out += "</a>";
    } else {
        out += "<a";
        for (int i = 0; i < bombSize; ++i)
            out += " b" + std::to_string(i) + "=\"\"";
        out += "/>";
    }
    return out + envelopeTail;
}

} // namespace

HttpResponse rubbishAnswer()
{
    HttpResponse response;
    response.writeRaw = [](const HttpResponse::Sink& sink) {
        std::string bytes;
        for (int i = 0; i < 4096; ++i)
            bytes += static_cast<char>(QRandomGenerator::global()->bounded(256));
        sink(bytes);
    };
    return response;
}

HttpResponse endlessLineAnswer()
{
    HttpResponse response;
    response.writeRaw = [](const HttpResponse::Sink& sink) {
        const std::string piece(64 * 1024, 'a');
        bool more = sink("HTTP/1.1 200 OK\r\nServer: ");
        while (more)
            more = sink(piece);
    };
    return response;
}

HttpResponse xmlBombAnswer(const std::string& kind)
{
    HttpResponse response;
    response.contentType = "application/soap+xml; charset=utf-8";
    response.body = bomb(kind);
    return response;
}

} // namespace recorder_sim
