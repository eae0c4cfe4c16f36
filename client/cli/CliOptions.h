#pragma once

#include <QCommandLineOption>
#include <QCoreApplication>

namespace vemo_client {

/// Every option of every verb, each with its one description.
struct CliOptions
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::CliParser)

public:
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")}, tr("Shows this help.")};
    QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")}, tr("Shows the version.")};
    QCommandLineOption data{QStringLiteral("data"), tr("Keeps settings and data below <dir>."), tr("dir")};
    QCommandLineOption theme{QStringLiteral("theme"), tr("Starts the window in this theme: dark or light."),
                             tr("name")};

    QCommandLineOption logLevel{QStringLiteral("log-level"),
                                tr("Keeps what is at least this grave in the program's log: debug, info, warning or "
                                   "error; info when left out."),
                                tr("level")};

    QCommandLineOption device{
        QStringLiteral("device"),
        tr("Address of the recorder: its ONVIF device service (http, https; the path may be left out), or a "
           "replay address (rtsp, rtsps; {channel} stands for the channel's number)."),
        tr("url")};
    QCommandLineOption user{QStringLiteral("user"), tr("User on the recorder."), tr("name")};
    QCommandLineOption passwordFile{
        QStringLiteral("password-file"),
        tr("File whose first line is the password. Without it, the environment variable VEMO_PASSWORD."), tr("file")};
    QCommandLineOption channel{
        {QStringLiteral("channels"), QStringLiteral("channel")}, tr("Channel number from 1; several: 1,2,3."), tr("n")};
    QCommandLineOption begin{QStringLiteral("begin"),
                             tr("Begin, as 2026-01-10T08:00:00; local time unless an offset follows."), tr("time")};
    QCommandLineOption end{QStringLiteral("end"), tr("End, likewise."), tr("time")};
    QCommandLineOption pin{QStringLiteral("pin"), tr("Accepts only the recorder whose public key has this SHA-256."),
                           tr("hex")};
    QCommandLineOption ca{QStringLiteral("ca"), tr("PEM file of certificates to trust beside the system's own."),
                          tr("file")};
    QCommandLineOption file{
        QStringLiteral("file"),
        tr("Name of one recording, as search tells it; --begin and --end are only needed when the name has no span."),
        tr("name")};
    QCommandLineOption id{QStringLiteral("id"), tr("Task to act on, as list tells it; several times for several."),
                          tr("id")};
    QCommandLineOption all{QStringLiteral("all"), tr("Acts on every task for which it makes sense.")};
    QCommandLineOption noRetry{QStringLiteral("no-retry"),
                               tr("Ends without waiting for the next try of failed tasks.")};
    QCommandLineOption date{QStringLiteral("date"), tr("Day, as 2026-01-10, today or yesterday."), tr("day")};
    QCommandLineOption days{QStringLiteral("days"), tr("For so many days from that day on; 1 when left out."), tr("n")};
    QCommandLineOption segments{
        QStringLiteral("segments"),
        tr("Times of day to back up, as 08:00-12:00,13:00-18:00; an end takes its whole minute in. Without it, the "
           "whole day."),
        tr("times")};
    QCommandLineOption tries{QStringLiteral("tries"),
                             tr("Gives a task up in this run after so many failures; 3 when left out."), tr("n")};
    QCommandLineOption to{QStringLiteral("to"), tr("Folder to copy the files into; it must be there."), tr("folder")};
    QCommandLineOption json{QStringLiteral("json"), tr("Writes one JSON object a line.")};
    QCommandLineOption verbose{QStringLiteral("verbose"), tr("Writes diagnostics to the standard error stream.")};
    QCommandLineOption out{
        QStringLiteral("out"),
        tr("File to write, or folder; with several channels a folder. Files there are never overwritten."), tr("path")};
};

} // namespace vemo_client
