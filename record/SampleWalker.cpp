#include "record/SampleWalker.h"

namespace KOLT {

SampleWalker::SampleWalker(const MessageSeries& series)
    : m_samples(series)
{
    lookAhead();
}

bool SampleWalker::walk(double limit)
{
    while (m_nextSeconds <= limit) {
        m_sample = &m_samples[m_next++];
        lookAhead();
    }
    return true;
}

void SampleWalker::lookAhead()
{
    m_nextSeconds = m_next < m_samples.size() ? m_samples[m_next].seconds()
                                              : std::numeric_limits<double>::infinity();
}

} // namespace KOLT
