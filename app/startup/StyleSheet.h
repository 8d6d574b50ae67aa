#pragma once

#include <QString>

#include <map>

namespace KOLT {

/// Reads a style sheet: the toolkit's own syntax plus comments to the end of the line and a block
/// "Variables { name: value; }" whose values stand for "$(name)" everywhere else.
class StyleSheet
{
public:
    using Entries = std::map<QString, QString>;

    /// The text to apply: without comments and the block of variables, their references replaced.
    /// A file that cannot be opened gives an empty text.
    QString read(const QString& path);

    const Entries& variables() const { return m_variables; }

    /// The entries of every other block, by the block's header.
    const std::map<QString, Entries>& blocks() const { return m_blocks; }

private:
    static QString withoutComments(const QString& text);

    Entries m_variables;
    std::map<QString, Entries> m_blocks;
};

} // namespace KOLT
