#pragma once

#include <QStringList>

#include <cstddef>

/// The minimum that any reader of recordings must do, as a common base for comparisons: "read" and
/// "read and group" mean the same in all figures.
///
/// Nothing is checked or decoded. Memory is kept for the next call, as allocating it takes longer
/// than the rest and varies between systems; so do not measure the first call. A file that cannot
/// be read ends the program.
namespace KOLT::Bench {

/// *Read*: reads each file into memory in one go. Returns the number of bytes.
std::size_t read(const QStringList& paths);

/// *Read and group*: reads each file in blocks and copies each 28-byte sample to an array for its
/// identifier. Returns the number of samples.
std::size_t readAndGroup(const QStringList& paths);

} // namespace KOLT::Bench
