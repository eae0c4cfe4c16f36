#pragma once

#include <QByteArray>

class QSslCertificate;

namespace vms_sdk::rtsp {

/// SHA-256 of the certificate's SubjectPublicKeyInfo in DER, 32 bytes: what a pin holds (RFC 7469 clause 2.4). Empty
/// when the certificate cannot be read.
QByteArray peerKeySha256(const QSslCertificate& certificate);

} // namespace vms_sdk::rtsp
