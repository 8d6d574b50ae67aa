#include "cli/Trust.h"

#include "record/ClockTime.h"

#include <QJsonObject>
#include <QStringList>

namespace KOLT::Cli {

namespace {

QJsonArray jsonNames(const std::vector<QString>& names)
{
    return QJsonArray::fromStringList(QStringList(names.begin(), names.end()));
}

QJsonValue jsonSeconds(const std::optional<double>& seconds)
{
    return seconds ? QJsonValue(*seconds) : QJsonValue(QJsonValue::Null);
}

QString spanText(const TrustFinding& finding)
{
    const auto text = [](const std::optional<double>& seconds) {
        return seconds ? durationText(*seconds) : QStringLiteral("?");
    };
    if (!finding.from && !finding.to)
        return {};
    return QStringLiteral(" (%1 to %2)").arg(text(finding.from), text(finding.to));
}

} // namespace

QJsonArray jsonTrust(const std::vector<TrustFinding>& findings)
{
    QJsonArray result;
    for (const TrustFinding& finding : findings) {
        result.append(QJsonObject{
            {QStringLiteral("kind"), trustKindName(finding.kind)},
            {QStringLiteral("severity"), trustSeverityName(trustSeverity(finding.kind))},
            {QStringLiteral("files"), jsonNames(finding.files)},
            {QStringLiteral("from"), jsonSeconds(finding.from)},
            {QStringLiteral("to"), jsonSeconds(finding.to)},
            {QStringLiteral("text"), finding.text},
        });
    }
    return result;
}

QJsonArray jsonMarked(Figures figures)
{
    return jsonNames(figureNames(figures));
}

QByteArray trustLines(const std::vector<TrustFinding>& findings)
{
    QString lines;
    for (const TrustFinding& finding : findings)
        lines += QStringLiteral(" %1 %2: %3%4. %5\n")
                     .arg(QLatin1String(finding.marks.empty() ? " " : "*"),
                          trustSeverityName(trustSeverity(finding.kind)),
                          trustKindTitle(finding.kind), spanText(finding), finding.text);
    return lines.toUtf8();
}

} // namespace KOLT::Cli
