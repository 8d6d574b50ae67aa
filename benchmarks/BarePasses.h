#pragma once

#include <QStringList>

#include <cstddef>

/// The least that any reader of recordings does. Written once, plainly and for all figures, so that
/// "read" and "read and group" mean the same wherever something is compared with them.
///
/// Nothing is checked or decoded. The memory is kept for the next call, as new memory costs more
/// than all the rest, and a different amount on every system: the first call only prepares. A file
/// that cannot be read ends the program.
namespace KOLT::Bench {

/// *Read*: each file read to memory as a whole. Returns the bytes read.
std::size_t read(const QStringList& paths);

/// *Read and group*: each file read block by block, and each 28-byte sample copied to the array of
/// its identifier. Returns the samples copied.
std::size_t readAndGroup(const QStringList& paths);

} // namespace KOLT::Bench
