#pragma once

#include "record/RecordFileWriter.h"
#include "tools/samplecard/CycleSimulation.h"
#include "tools/samplecard/MessageEncoder.h"

#include <QDir>
#include <QSaveFile>

#include <memory>

namespace KOLT::SampleCard {

/// Writes one engine cycle to files as the unit does: a new file every CyclePlan::fileSeconds, the
/// first one without a date, as the unit has no clock before the first satellite fix.
class CycleWriter
{
public:
    /// `fileNumber` is the number of the cycle's first file; it is advanced past the last one.
    CycleWriter(const QDir& folder, const CyclePlan& plan, const MessageEncoder& encoder,
                Random& random, int& fileNumber);

    bool write(CycleSimulation& simulation);

    /// Units differ in the suffix they write.
    static QString fileName(int number);

    QString firstFile() const { return m_firstFile; }

    QString lastFile() const { return m_lastFile; }

    double lastSeconds() const { return m_lastSeconds; }

    /// What lies between two samples that would follow each other otherwise.
    struct Break
    {
        QString file;       ///< of the sample before
        bool isCut = false; ///< the file ends there, within a sample
        double from = 0.0;
        double to = 0.0;
    };

    const std::vector<Break>& breaks() const { return m_breaks; }

    /// Why writing failed.
    QString error() const { return m_error; }

private:
    bool openFile(double counter);
    bool closeFile();
    bool flush();
    bool fail();
    void record(const CycleSimulation& simulation, long step);
    RecordFileWriter::RecordHeader header(double counter) const;

    QDir m_folder;
    const CyclePlan& m_plan;
    const MessageEncoder& m_encoder;
    Random& m_random;
    int& m_fileNumber;
    RecordFileWriter::FileOrder m_order;
    std::unique_ptr<QSaveFile> m_file;
    QByteArray m_buffer;
    int m_filesOpened = 0;
    std::uint32_t m_sequence = 0;
    double m_lastSeconds = 0.0; ///< of the last sample
    std::vector<Break> m_breaks;
    QString m_firstFile;
    QString m_lastFile;
    QString m_error;
};

} // namespace KOLT::SampleCard
