#pragma once

#include "export/ExportClock.h"
#include "export/ExportOptions.h"
#include "profile/Profile.h"
#include "record/DataSet.h"
#include "record/SampleWalker.h"

#include <string>
#include <vector>

namespace KOLT {

/// Turns values into the text of CSV cells.
class CsvFormat
{
public:
    CsvFormat(const Profile& profile, const CsvOptions& options)
        : m_profile(profile)
        , m_separator(options.separator)
        , m_hasComma(options.decimalComma)
        , m_hasCodesOnly(options.codesOnly)
    {
    }

    char separator() const { return m_separator; }

    void append(std::string& text, double number, int decimals) const;
    /// Date and time of day; the decimal sign applies to the seconds too.
    void append(std::string& text, const ExportClock& clock, double seconds) const;
    /// The value as the data table shows it, codes perhaps without their labels; `number` was
    /// decoded from `data`.
    void append(std::string& text, const ProfileParameter& parameter, const MessageData& data,
                double number) const;

private:
    void setDecimalSign(std::string& text, std::size_t start) const;

    const Profile& m_profile;
    char m_separator;
    bool m_hasComma;
    bool m_hasCodesOnly;
};

/// The parameter cells of successive rows. Parameters of one message share a walk over its samples,
/// and a cell is decoded only when its sample changes.
class CsvCells
{
public:
    CsvCells(const DataSet& dataSet, const std::vector<const ProfileParameter*>& parameters,
             const CsvFormat& format);

    /// Appends the cells of the row at this time, each after a separator. Times must ascend.
    void appendTo(std::string& line, double seconds);

private:
    struct Message
    {
        SampleWalker walker;
        std::vector<std::size_t> columns;
    };

    struct Column
    {
        const ProfileParameter* parameter;
        std::string text;                  ///< the separator, then the cell
        std::optional<std::uint64_t> bits; ///< bit pattern of the number in `text`
    };

    void decode(const Message& message, const MessageData& data);

    const CsvFormat& m_format;
    std::vector<Column> m_columns;
    std::vector<Message> m_messages;
};

} // namespace KOLT
