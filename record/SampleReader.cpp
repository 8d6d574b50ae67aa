#include "record/SampleReader.h"

#include "base/Diagnostics.h"
#include "record/RecordFormat.h"

#include <algorithm>
#include <limits>

namespace KOLT {

namespace {

using namespace RecordFormat;

/// Bytes per read; a whole number of samples.
constexpr qint64 blockBytes = 32'768LL * sampleBytes;

} // namespace

bool SampleReader::open(const QString& path)
{
    m_file.close();
    m_file.setFileName(path);
    m_done = 0;
    m_wanted = 0;
    m_held = 0;
    m_heldAt = 0;
    m_isOpen = !path.isEmpty() && m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    if (!m_isOpen) {
        Diagnostics::print("RecordFile::readRecordData: Could not open %s\n", qUtf8Printable(path));
        return false;
    }
    m_header.resize(headerBytes);
    const qint64 count = m_file.read(reinterpret_cast<char*>(m_header.data()), headerBytes);
    m_header.resize(static_cast<std::size_t>(std::max<qint64>(0, count)));
    m_wanted = qint64{samplesIn(m_file.size())} * sampleBytes;
    m_block.resize(static_cast<std::size_t>(std::min(blockBytes, m_wanted)));
    return true;
}

int SampleReader::samplesIn(qint64 fileBytes)
{
    const qint64 count = (fileBytes - headerBytes) / sampleBytes;
    return static_cast<int>(std::clamp<qint64>(count, 0, std::numeric_limits<int>::max()));
}

int SampleReader::sampleCount() const
{
    return static_cast<int>(m_wanted / sampleBytes);
}

std::span<const unsigned char> SampleReader::next()
{
    std::copy_n(m_block.begin() + static_cast<std::ptrdiff_t>(m_heldAt), m_held, m_block.begin());
    m_heldAt = 0;
    while (m_isOpen && m_done < m_wanted) {
        const qint64 room =
            std::min(static_cast<qint64>(m_block.size() - m_held), m_wanted - m_done);
        const qint64 count = m_file.read(reinterpret_cast<char*>(m_block.data()) + m_held, room);
        if (count <= 0) {
            if (count < 0)
                Diagnostics::print("RecordFile::readRecordData: Could not read all of %s: %s\n",
                                   qUtf8Printable(m_file.fileName()),
                                   qUtf8Printable(m_file.errorString()));
            else
                Diagnostics::print("RecordFile::readRecordData: %s ends after %lld of %d samples\n",
                                   qUtf8Printable(m_file.fileName()),
                                   static_cast<long long>(m_done / sampleBytes), sampleCount());
            m_isOpen = false;
            return {};
        }
        m_done += count;
        const std::size_t available = m_held + static_cast<std::size_t>(count);
        m_held = available % sampleBytes;
        m_heldAt = available - m_held;
        if (m_heldAt > 0)
            return std::span<const unsigned char>(m_block).first(m_heldAt);
        m_heldAt = 0;
    }
    return {};
}

} // namespace KOLT
