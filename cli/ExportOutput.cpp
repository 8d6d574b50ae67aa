#include "cli/ExportOutput.h"

#include "base/System.h"
#include "base/WriteGuard.h"
#include "cli/Recording.h"

#include <QIODevice>

#include <cerrno>
#include <cstring>

namespace KOLT::Cli {

namespace {

constexpr QLatin1String standardOutput{"-"};

/// The standard output, for the writers of the exports.
class OutputDevice : public QIODevice
{
public:
    OutputDevice() { open(WriteOnly | Unbuffered); }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char*, qint64) override { return -1; }

    qint64 writeData(const char* data, qint64 size) override
    {
        return writeOutput(QByteArray::fromRawData(data, size)) ? size : -1;
    }
};

} // namespace

ExportOutcome exportTo(const QString& output, const std::function<ExportStatus(QIODevice&)>& write)
{
    if (output != standardOutput)
        return exportToFile(output, write);
    System::prepareDataOutput();
    OutputDevice device;
    errno = 0;
    const ExportStatus status = write(device);
    if (status == ExportStatus::Done && finishOutput().isEmpty())
        return {ExportStatus::Done, {}};
    const QString reason = errno != 0 ? QString::fromLocal8Bit(std::strerror(errno))
                                      : QStringLiteral("not everything could be written");
    return {ExportStatus::Failed, reason};
}

QString outputObjection(const QString& output)
{
    QString objection = output == standardOutput ? QString() : writeObjection(output);
    return objection.replace(QLatin1Char('\n'), QLatin1Char(' '));
}

QString outputError(const QString& output, const QString& reason)
{
    return QStringLiteral("%1 could not be written: %2")
        .arg(output == standardOutput ? QStringLiteral("the standard output") : output, reason);
}

} // namespace KOLT::Cli
