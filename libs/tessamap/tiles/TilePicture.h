#pragma once

#include <QByteArray>
#include <QImage>

namespace Tessa {

/// Encoders write about ten scans. A small JPEG with many more can keep the decoder busy for
/// seconds.
inline constexpr int maxJpegScans = 32;

/// Decodes a tile: 256 or 512 pixels square, Format_RGBA8888. Null unless the picture is complete.
///
/// Servers are not trusted. The first bytes decide between the PNG and the JPEG decoder; other
/// formats are refused. Size and number of scans are checked before decoding, so that a small file
/// cannot demand much memory or time, and parts that the picture does not need (texts, profiles)
/// never reach the decoder.
QImage decodeTile(const QByteArray& body);

} // namespace Tessa
