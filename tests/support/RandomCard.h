#pragma once

#include "record/RecordFileWriter.h"
#include "tests/support/TestFiles.h"

#include <QDateTime>
#include <QDir>

#include <bit>
#include <random>
#include <vector>

namespace KOLT::Test {

/// Small cards of believable engine runs, another one for each seed, and what can happen to them.
class RandomCard
{
public:
    struct File
    {
        QString name;
        int run = 0;
        int place = 0; ///< within its run
        RecordFileWriter::RecordHeader header;
        std::vector<RecordFileWriter::RecordSample> samples;
        int bytesLost = 0; ///< at its end
        bool isDropped = false;
    };

    /// The profile that the messages are made for.
    static QByteArray profile()
    {
        const auto parameter = [](const char* name, int id, int byte, const char* role) {
            return QStringLiteral("<Parameter name='%1' id='%2' startByte='%3' dataType='FLOAT' "
                                  "koltDataType='%4'/>")
                .arg(name)
                .arg(id)
                .arg(byte)
                .arg(role)
                .toUtf8();
        };
        return "<Device name='D'>" + parameter("v", 1, 0, "GroundSpeed") +
               parameter("h", 3, 0, "Altitude") + parameter("lat", 2, 0, "Latitude") +
               parameter("lon", 2, 4, "Longitude") + parameter("thr", 4, 0, "ThrottleA") +
               parameter("fa", 5, 0, "FuelA") + parameter("fb", 5, 4, "FuelB") +
               parameter("oil", 6, 0, "") + parameter("seldom", 7, 0, "") + "</Device>";
    }

    explicit RandomCard(unsigned seed)
        : m_engine(seed)
    {
        m_order = chance(0.3) ? RecordFileWriter::FileOrder::BigEndian
                              : RecordFileWriter::FileOrder::LittleEndian;
        m_number = whole(1, 400);
        m_fileSeconds = uniform(60.0, 100.0);
        const int runs = whole(1, 3);
        for (int run = 0; run < runs; ++run)
            addRun(run);
    }

    double uniform(double low, double high)
    {
        return low + (high - low) * static_cast<double>(m_engine()) / 4294967296.0;
    }

    int whole(int low, int high) { return static_cast<int>(uniform(low, high + 1)); }

    bool chance(double share) { return uniform(0.0, 1.0) < share; }

    std::vector<File>& files() { return m_files; }

    bool write(const QString& folder) const
    {
        bool isWritten = true;
        for (const File& file : m_files) {
            if (file.isDropped)
                continue;
            QByteArray bytes;
            RecordFileWriter::appendHeader(bytes, file.header, m_order);
            for (const RecordFileWriter::RecordSample& sample : file.samples)
                RecordFileWriter::appendSample(bytes, sample, m_order);
            bytes.chop(file.bytesLost);
            isWritten = writeFile(QDir(folder).filePath(file.name), bytes) && isWritten;
        }
        return isWritten;
    }

private:
    struct State
    {
        float speed = 0.0F;
        float height = 0.0F;
        float throttle = 10.0F;
        float along = 0.0F; ///< minutes of arc
    };

    void addRun(int run)
    {
        m_state = {};
        m_counter = uniform(2.0, 6.0);
        m_clock = QDateTime(QDate(2026, 7, 1 + run), QTime(8, whole(0, 59)), Qt::UTC);
        m_nextFile = m_counter;
        m_place = 0;
        m_fix = m_counter + uniform(5.0, 15.0);
        hold(uniform(40.0, 80.0), 10.0F, 0.0F, 0.0F);
        for (int flights = whole(run == 0 ? 1 : 0, 2); flights > 0; --flights) {
            hold(uniform(30.0, 60.0), 15.0F, 18.0F, 0.0F);
            hold(uniform(60.0, 100.0), 98.0F, 120.0F, 4.0F);
            hold(uniform(50.0, 90.0), 35.0F, 140.0F, -3.0F);
            while (m_state.height > 0.0F)
                hold(2.0, 25.0F, 100.0F, -3.0F);
            hold(uniform(40.0, 70.0), 9.0F, 0.0F, 0.0F);
        }
        hold(uniform(60.0, 120.0), 8.0F, 0.0F, 0.0F);
        ++m_run;
    }

    /// Flies on for some seconds, towards a speed, climbing where it is fast enough.
    void hold(double seconds, float throttle, float speed, float climb)
    {
        constexpr float step = 0.2F;
        for (const double end = m_counter + seconds; m_counter < end; m_counter += step) {
            m_state.throttle = throttle;
            m_state.speed += std::clamp(speed - m_state.speed, -1.6F, 1.8F);
            if (m_state.speed > 90.0F)
                m_state.height = std::max(0.0F, m_state.height + climb * step);
            m_state.along += m_state.speed * step / 3600.0F / 1.852F;
            record();
        }
    }

    void record()
    {
        if (m_counter >= m_nextFile) {
            openFile();
            m_nextFile += m_fileSeconds;
        }
        const bool hasFix = m_counter >= m_fix;
        const float noise = static_cast<float>(uniform(0.0, 0.5));
        ++m_step;
        put(1, hasFix ? m_state.speed + noise : 0.0F);
        put(2, hasFix ? 4801.0F + m_state.along : 0.0F, hasFix ? 1102.0F : 0.0F);
        put(3, hasFix ? 450.0F + m_state.height + noise : 0.0F);
        put(4, m_state.throttle + noise);
        if (m_step % 3 == 0)
            put(5, 5.0F + 0.1F * m_state.throttle + noise, 5.0F + 0.1F * m_state.throttle);
        if (m_step % 5 == 0)
            put(6, 80.0F + noise);
        if (chance(0.005) || m_files.back().samples.size() < 7)
            put(7, noise);
    }

    void put(std::uint32_t id, float first, float second = 0.0F)
    {
        RecordFileWriter::RecordSample sample;
        sample.identifier = id;
        const std::uint32_t words[] = {std::bit_cast<std::uint32_t>(first),
                                       std::bit_cast<std::uint32_t>(second)};
        for (std::size_t i = 0; i < 8; ++i)
            sample.data[i] = static_cast<std::uint8_t>(words[i / 4] >> (8 * (i % 4)));
        m_late = std::max(m_late + 1e-6, m_counter + uniform(0.0, 0.02) * id);
        sample.ticks = RecordFileWriter::ticksFromSeconds(m_late);
        m_files.back().samples.push_back(sample);
    }

    void openFile()
    {
        File& file = m_files.emplace_back();
        file.name = QStringLiteral("REC%1.CAN").arg(m_number++, 5, 10, QLatin1Char('0'));
        file.run = m_run;
        file.place = m_place++;
        if (file.place == 0)
            m_late = 0.0;
        file.header.ticks = RecordFileWriter::ticksFromSeconds(m_counter);
        file.header.ecuSerialNumber = 4711;
        file.header.engineSerial = "E-1";
        file.header.engineType = "915 TURBO";
        file.header.softwarePartA = file.header.softwarePartB = "SW-1";
        file.header.emuVersion = "3.1";
        if (file.place == 0)
            return;
        const QDateTime now = m_clock.addMSecs(static_cast<qint64>(m_counter * 1000.0));
        file.header.year = static_cast<std::int16_t>(now.date().year());
        file.header.month = static_cast<std::uint8_t>(now.date().month());
        file.header.day = static_cast<std::uint8_t>(now.date().day());
        file.header.hour = static_cast<std::uint8_t>(now.time().hour());
        file.header.minute = static_cast<std::uint8_t>(now.time().minute());
        file.header.second = static_cast<std::uint8_t>(now.time().second());
    }

    std::mt19937 m_engine;
    RecordFileWriter::FileOrder m_order;
    std::vector<File> m_files;
    State m_state;
    QDateTime m_clock;
    double m_counter = 0.0;
    double m_late = 0.0; ///< time of the last sample
    double m_nextFile = 0.0;
    double m_fileSeconds = 0.0;
    double m_fix = 0.0;
    int m_number = 1;
    int m_run = 0;
    int m_place = 0;
    int m_step = 0;
};

} // namespace KOLT::Test
