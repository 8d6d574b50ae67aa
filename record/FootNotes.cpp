#include "record/FootNotes.h"

#include <QStringList>

#include <algorithm>

namespace KOLT {

QString raisedNumber(int number)
{
    constexpr std::array<char16_t, 10> raised{u'\u2070', u'\u00b9', u'\u00b2', u'\u00b3',
                                              u'\u2074', u'\u2075', u'\u2076', u'\u2077',
                                              u'\u2078', u'\u2079'};
    QString text;
    for (const QChar digit : QString::number(number))
        text += QChar(raised[static_cast<std::size_t>(digit.digitValue())]);
    return text;
}

QString FlightNotes::marks(Figures figures) const
{
    std::vector<int> numbers;
    for (const Entry& entry : entries) {
        if ((entry.figures & figures) != 0)
            numbers.push_back(entry.number);
    }
    std::ranges::sort(numbers);
    QStringList texts;
    for (const int number : numbers)
        texts << raisedNumber(number);
    texts.removeDuplicates();
    return texts.join(QLatin1Char(' '));
}

FlightNotes FootNotes::add(const std::vector<TrustFinding>& findings, std::size_t flight,
                           Figures shown)
{
    FlightNotes notes;
    for (const TrustFinding& finding : findings) {
        for (const FlightMark& mark : finding.marks) {
            if (mark.flight == flight && (mark.figures & shown) != 0)
                notes.entries.push_back({mark.figures, numberOf(finding.text)});
        }
    }
    return notes;
}

int FootNotes::numberOf(const QString& text)
{
    auto found = std::ranges::find(m_texts, text);
    if (found == m_texts.end())
        found = m_texts.insert(found, text);
    return static_cast<int>(found - m_texts.begin()) + 1;
}

QStringList FootNotes::lines() const
{
    QStringList lines;
    for (std::size_t i = 0; i < m_texts.size(); ++i)
        lines << raisedNumber(static_cast<int>(i) + 1) + QLatin1Char(' ') + m_texts[i];
    return lines;
}

} // namespace KOLT
