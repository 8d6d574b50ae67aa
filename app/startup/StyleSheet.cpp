#include "app/startup/StyleSheet.h"

#include <QFile>
#include <QRegularExpression>

namespace KOLT {

namespace {

StyleSheet::Entries parseEntries(const QString& body)
{
    StyleSheet::Entries entries;
    for (const QString& entry : body.split(QLatin1Char(';'))) {
        const qsizetype colon = entry.indexOf(QLatin1Char(':'));
        if (colon >= 0)
            entries[entry.left(colon).trimmed()] = entry.mid(colon + 1).trimmed();
    }
    return entries;
}

void replaceVariables(const StyleSheet::Entries& variables, QString& text)
{
    // Bounded, as a variable that contains itself makes the text longer with every round.
    constexpr qsizetype maxLength = 1'000'000;
    for (const auto& [key, value] : variables) {
        if (text.size() < maxLength)
            text.replace(QStringLiteral("$(") + key + QLatin1Char(')'), value);
    }
}

} // namespace

QString StyleSheet::read(const QString& path, const Entries& given)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QString text = withoutComments(QString::fromUtf8(file.readAll()));
    QString applied;
    const qsizetype blockCount = text.count(QLatin1Char('}'));
    for (qsizetype i = 0; i < blockCount; ++i) {
        const QString block = text.section(QLatin1Char('}'), i, i);
        const QString header = block.section(QLatin1Char('{'), 0, 0).trimmed();
        const Entries entries = parseEntries(block.section(QLatin1Char('{'), 1).trimmed());
        if (header.section(QLatin1Char(':'), 0, 0) == QLatin1String("Variables")) {
            for (const auto& [key, value] : entries)
                m_variables[key] = value;
            // Values may refer to other variables: one round per variable resolves any chain.
            for (std::size_t round = 0; round < entries.size(); ++round) {
                replaceVariables(entries, text);
                replaceVariables(entries, applied);
            }
            continue;
        }
        for (const auto& [key, value] : entries)
            m_blocks[header][key] = value;
        applied += block + QLatin1Char('}');
    }
    applied += text.section(QLatin1Char('}'), blockCount);
    replaceVariables(given, applied);
    return applied;
}

QString StyleSheet::withoutComments(const QString& text)
{
    static const QRegularExpression comment(
        QStringLiteral(R"((?:/\*(?:[^*]|(?:\*+[^*/]))*\*+/)|(?://.*))"));
    return QString(text).remove(comment);
}

} // namespace KOLT
