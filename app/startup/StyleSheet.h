#pragma once

#include <QString>

#include <map>

namespace KOLT {

/// Reads a style sheet: Qt's syntax plus "//" comments and a block "Variables { name: value; }",
/// whose values replace "$(name)" everywhere else.
class StyleSheet
{
public:
    using Entries = std::map<QString, QString>;

    /// The text to apply, without comments and the Variables block, references replaced. Those that
    /// the file does not define have the given values. Empty when the file cannot be opened.
    QString read(const QString& path, const Entries& given = {});

    const Entries& variables() const { return m_variables; }

    /// Entries of all other blocks by the block's header.
    const std::map<QString, Entries>& blocks() const { return m_blocks; }

private:
    static QString withoutComments(const QString& text);

    Entries m_variables;
    std::map<QString, Entries> m_blocks;
};

} // namespace KOLT
