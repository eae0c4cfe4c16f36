#pragma once

#include "net/DigestAuth.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QTimeZone>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace recorder_sim {

/// What the command line says.
struct Options
{
    std::string bind = "127.0.0.1";
    std::uint16_t port = 0; ///< ONVIF; RTSP, control, ONVIF over TLS and RTSP over TLS follow; 0: any free ones
    int channels = 4;
    std::string user = "admin";
    std::string password;
    QDate firstDay;
    int days = 2;
    QTimeZone zone;
    double speed = 0; ///< cap on replay without rate control, in multiples of real time; 0: none
    std::size_t packetSize = 1400;
    std::string tlsCertificate;
    std::string tlsKey;
    QString clipsFolder;
    DigestAuth::Scheme auth = DigestAuth::Scheme::DigestMd5;
    int sessionTimeoutSeconds = 60;
    int maxSessions = 64;
    std::string serial; ///< serial number; makes the endpoint reference the same at every start
    bool discovery = false;
    QStringList names; ///< of the device, then of its channels; those that are left out have their usual ones
    std::vector<std::string> faults;

    /// Reads the arguments. False when the program must end at once: help was printed (exit code 0) or something is
    /// wrong (2, with a sentence on standard error).
    static bool parse(const QStringList& arguments, Options& options, int& exitCode);
};

} // namespace recorder_sim
