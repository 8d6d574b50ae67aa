#include "tools/samplecard/CycleWriter.h"

#include <cmath>

namespace KOLT::SampleCard {

namespace {

constexpr qsizetype bufferBytes = 1 << 20;
constexpr qsizetype tailBytes = 13;

} // namespace

CycleWriter::CycleWriter(const QDir& folder, const CyclePlan& plan, const MessageEncoder& encoder,
                         Random& random, int& fileNumber)
    : m_folder(folder)
    , m_plan(plan)
    , m_encoder(encoder)
    , m_random(random)
    , m_fileNumber(fileNumber)
    , m_order(plan.bigEndian ? RecordFileWriter::FileOrder::BigEndian
                             : RecordFileWriter::FileOrder::LittleEndian)
{
    m_buffer.reserve(bufferBytes + 4096);
}

QString CycleWriter::fileName(int number)
{
    const char* suffix = number % 16 == 7 ? "can" : number % 16 == 12 ? "xcb" : "CAN";
    return QStringLiteral("REC%1.%2")
        .arg(number, 5, 10, QLatin1Char('0'))
        .arg(QLatin1String(suffix));
}

bool CycleWriter::write(CycleSimulation& simulation)
{
    if (!openFile(simulation.counter()))
        return false;
    // Files start at whole seconds, as their dates are in whole seconds.
    double nextFile = std::floor(m_plan.counterStart) + m_plan.fileSeconds;
    for (long step = 0;; ++step) {
        record(simulation, step);
        if (m_buffer.size() >= bufferBytes && !flush())
            return false;
        if (!simulation.step(!m_encoder.due(step + 1).empty()))
            break;
        if (simulation.counter() >= nextFile) {
            nextFile += m_plan.fileSeconds;
            if (!closeFile() || !openFile(simulation.counter()))
                return false;
        }
    }
    return closeFile();
}

void CycleWriter::record(const CycleSimulation& simulation, long step)
{
    if (simulation.inDataGap()) {
        if (m_breaks.empty() || m_breaks.back().to > 0.0)
            m_breaks.push_back({m_lastFile, false, m_lastSeconds, 0.0});
        return;
    }
    // Each message has a slot of its own within the step and is delayed in it at random, as on a
    // busy bus.
    const double slot = 0.9 * stepSeconds / static_cast<double>(m_encoder.messageCount());
    for (const std::size_t i : m_encoder.due(step)) {
        RecordFileWriter::RecordSample sample =
            m_encoder.encode(i, simulation.quantities(), m_random);
        sample.word16 = m_sequence++;
        const double late = slot * (static_cast<double>(i) + m_random.uniform(0.0, 0.9));
        m_lastSeconds = simulation.counter() + late;
        if (!m_breaks.empty() && m_breaks.back().to == 0.0)
            m_breaks.back().to = m_lastSeconds;
        sample.ticks = RecordFileWriter::ticksFromSeconds(m_lastSeconds);
        RecordFileWriter::appendSample(m_buffer, sample, m_order);
    }
}

RecordFileWriter::RecordHeader CycleWriter::header(double counter) const
{
    RecordFileWriter::RecordHeader header;
    if (m_filesOpened > 0) {
        const QDateTime clock = m_plan.clock.addMSecs(std::llround(counter * 1000.0));
        header.year = static_cast<std::int16_t>(clock.date().year());
        header.month = static_cast<std::uint8_t>(clock.date().month());
        header.day = static_cast<std::uint8_t>(clock.date().day());
        header.hour = static_cast<std::uint8_t>(clock.time().hour());
        header.minute = static_cast<std::uint8_t>(clock.time().minute());
        header.second = static_cast<std::uint8_t>(clock.time().second());
    }
    header.ticks = RecordFileWriter::ticksFromSeconds(counter);
    header.busType = 2;
    header.ecuSerialNumber = m_plan.identity.unit;
    header.softwarePartA = "SW-A-02.14.07"; // fills its field
    header.ecuType = "ECU-2L";
    header.engineSerial = m_plan.identity.engine;
    header.engineType = "915 TURBO";
    header.softwarePartB = "SW-B-02.14.05";
    header.emuVersion = "3.08.2b";
    return header;
}

bool CycleWriter::openFile(double counter)
{
    m_lastFile = fileName(m_fileNumber++);
    if (m_filesOpened == 0)
        m_firstFile = m_lastFile;
    const QString path = m_folder.filePath(m_lastFile);
    m_file = std::make_unique<QSaveFile>(path);
    if (QFile::exists(path)) {
        m_error = QStringLiteral("%1 is there already, and recordings are not replaced").arg(path);
        return false;
    }
    if (!m_file->open(QIODevice::WriteOnly))
        return fail();
    RecordFileWriter::appendHeader(m_buffer, header(counter), m_order);
    ++m_filesOpened;
    return true;
}

bool CycleWriter::closeFile()
{
    if (m_filesOpened - 1 == m_plan.fileWithTail) {
        m_buffer.append(tailBytes, '\x2a'); // power was cut within a sample
        m_breaks.push_back({m_lastFile, true, m_lastSeconds, 0.0});
    }
    return flush() && ((m_file->flush() && m_file->commit()) || fail());
}

bool CycleWriter::flush()
{
    const bool written = m_file->write(m_buffer) == m_buffer.size();
    m_buffer.resize(0);
    return written || fail();
}

bool CycleWriter::fail()
{
    m_error = QStringLiteral("cannot write %1: %2").arg(m_file->fileName(), m_file->errorString());
    return false;
}

} // namespace KOLT::SampleCard
