#pragma once

#include "record/TrustFinding.h"

#include <QStringList>

#include <vector>

namespace KOLT {

/// Which footnotes belong to the figures of a flight.
struct FlightNotes
{
    struct Entry
    {
        Figures figures = 0;
        int number = 0; ///< of the note, from 1
    };

    std::vector<Entry> entries;

    /// The marks behind some of the figures, as small raised numbers ("¹ ³"); empty where no
    /// finding touches them.
    QString marks(Figures figures) const;
};

/// The findings that mark figures, as numbered notes below a table of one flight or of several. The
/// same sentence is one note, wherever it comes from.
class FootNotes
{
public:
    /// Adds what marks a flight, given by its index in the data set that the findings are of.
    /// Findings that touch none of the `shown` figures give no note.
    FlightNotes add(const std::vector<TrustFinding>& findings, std::size_t flight,
                    Figures shown = Figure::All);

    /// In the order of their numbers.
    const std::vector<QString>& texts() const { return m_texts; }

    /// As printed below a table: the number and the sentence.
    QStringList lines() const;

private:
    int numberOf(const QString& text);

    std::vector<QString> m_texts;
};

/// The number of a note in raised digits.
QString raisedNumber(int number);

} // namespace KOLT
