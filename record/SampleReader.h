#pragma once

#include "record/ByteReader.h"

#include <QFile>

#include <span>
#include <vector>

namespace KOLT {

/// Reads the samples of a record file block by block, so that the caller can do other work between
/// two blocks. Failures print a line with the file's path.
class SampleReader
{
public:
    /// The number of whole samples in a file of that size.
    static int samplesIn(qint64 fileBytes);

    /// Reads the header and goes to the first sample. False if the file cannot be opened.
    bool open(const QString& path);

    /// The bytes of the header; fewer than 128 if the file is shorter.
    std::span<const unsigned char> header() const { return m_header; }

    /// The next whole samples of 28 bytes each, valid until the next call. Empty at the end, or if
    /// reading failed.
    std::span<const unsigned char> next();

    /// Whether all samples were read that the file's size promised when it was opened.
    bool isComplete() const { return m_isOpen && m_done == m_wanted; }

    int sampleCount() const;

    /// Bytes of samples read so far.
    qint64 doneBytes() const { return m_done; }

private:
    QFile m_file;
    std::vector<unsigned char> m_header;
    bool m_isOpen = false;
    qint64 m_wanted = 0;
    qint64 m_done = 0;
    std::size_t m_held = 0; ///< bytes of a sample that was read in part
    std::size_t m_heldAt = 0;
    std::vector<unsigned char> m_block;
};

} // namespace KOLT
