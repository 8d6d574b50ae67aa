#pragma once

#include <QByteArray>
#include <QImage>

namespace Tessa {

/// A JPEG with more scans is no map tile, but a small file that keeps the decoder busy for seconds.
/// Encoders write about ten.
inline constexpr int maxJpegScans = 32;

/// A complete picture of 256 or 512 pixels square in Format_RGBA8888, or a null one.
///
/// Bodies come from servers that are not trusted. The first bytes tell what a body is: PNG and JPEG
/// are decoded, each by its own decoder, and nothing else by any. Size and number of scans are read
/// before, so that a small file cannot ask for a huge picture or much time, and what is not needed
/// for the picture (texts, profiles) never reaches the decoder.
QImage decodeTile(const QByteArray& body);

} // namespace Tessa
