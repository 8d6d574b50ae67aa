#include "cli/EngineReportVerb.h"

#include "base/SafeFile.h"
#include "cli/Json.h"
#include "cli/Recording.h"
#include "cli/ReportJson.h"
#include "cli/ReportLedger.h"
#include "report/ReportPrinter.h"
#include "report/ReportReader.h"
#include "resources/Translations.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

namespace KOLT::Cli {

namespace {

/// Whatever the system's language is.
void setLanguage(bool isGerman, QTranslator& translator)
{
    QLocale::setDefault(isGerman ? QLocale(QLocale::German, QLocale::Germany)
                                 : QLocale(QLocale::English, QLocale::UnitedStates));
    initKoltTranslations();
    if (translator.load(isGerman ? QStringLiteral("kolt_de") : QStringLiteral("kolt_us"),
                        QStringLiteral(":/trl")))
        QCoreApplication::installTranslator(&translator);
}

} // namespace

QString engineReport(const Arguments& arguments, Recording& recording, ReportLedger& ledger)
{
    const bool isPdf = !arguments.pdf.isEmpty();
    QTranslator translator;
    setLanguage(arguments.isGerman, translator);
    if (isPdf && !canPrintReports())
        return QStringLiteral("no font is installed, so that no PDF file can be written");
    EngineReport content = readReport(recording.profile(), recording.card(), QDate::currentDate());
    QString error = ledger.read(content.identity.engineSerials, content.date);
    if (!error.isEmpty())
        return error;
    content.ledger = ledger.html();
    if (isPdf) {
        const WriteResult written =
            replaceFile(arguments.pdf,
                        reportPdf(content, arguments.isLetter ? QPageSize::Letter : QPageSize::A4));
        if (!written)
            error = QStringLiteral("%1 was not written: %2").arg(arguments.pdf, written.error);
    } else {
        QJsonObject report = jsonReport(content);
        if (ledger.isOpen())
            report.insert(QStringLiteral("ledgers"), ledger.json());
        error = printJson(report);
    }
    return error.isEmpty() ? unreadError({content.unreadFiles.begin(), content.unreadFiles.end()})
                           : error;
}

} // namespace KOLT::Cli
