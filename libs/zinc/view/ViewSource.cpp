#include "libs/zinc/view/ViewSource.h"

#include <algorithm>

namespace Zinc2D {

ViewSource::ViewSource(QString file, QString text)
    : m_file(std::move(file))
    , m_text(std::move(text))
    , m_lineStarts{0}
{
    for (qsizetype i = 0; i < m_text.size(); ++i) {
        if (m_text[i] == u'\n')
            m_lineStarts.push_back(i + 1);
    }
}

Diagnostic ViewSource::diagnostic(qsizetype offset, const QString& message) const
{
    const auto next = std::ranges::upper_bound(m_lineStarts, offset);
    const qsizetype line = std::max<qsizetype>(next - m_lineStarts.begin(), 1);
    const qsizetype start = m_lineStarts[static_cast<std::size_t>(line - 1)];
    return {m_file, line, offset - start + 1, message};
}

QHash<QString, qsizetype> ViewSource::attributeOffsets(qsizetype tagStart) const
{
    QHash<QString, qsizetype> offsets;
    qsizetype i = tagStart;
    const auto isIn = [&] { return i < m_text.size(); };
    const auto endsName = [&] {
        return m_text[i].isSpace() || m_text[i] == u'=' || m_text[i] == u'>' || m_text[i] == u'/';
    };
    while (isIn() && !endsName())
        ++i; // the tag's own name
    while (isIn() && m_text[i] != u'>') {
        if (endsName()) {
            ++i;
            continue;
        }
        const qsizetype start = i;
        while (isIn() && !endsName())
            ++i;
        const QString name = m_text.mid(start, i - start);
        while (isIn() && (m_text[i].isSpace() || m_text[i] == u'='))
            ++i;
        if (!isIn() || (m_text[i] != u'"' && m_text[i] != u'\''))
            break;
        const QChar quote = m_text[i++];
        offsets.insert(name, i);
        while (isIn() && m_text[i] != quote)
            ++i;
        ++i;
    }
    return offsets;
}

qsizetype ViewSource::offsetInValue(qsizetype valueStart, qsizetype characters) const
{
    qsizetype i = valueStart;
    for (; characters > 0 && i < m_text.size(); --characters) {
        const qsizetype end = m_text[i] == u'&' ? m_text.indexOf(u';', i) : -1;
        i = end < 0 ? i + 1 : end + 1;
    }
    return i;
}

} // namespace Zinc2D
