#pragma once

#include "base/Diagnostics.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

namespace KOLT::Fuzz {

/// A temporary file that holds the bytes under test.
class FuzzFile
{
public:
    explicit FuzzFile(const char* name)
        : m_path(m_directory.filePath(QLatin1String(name)))
    {
        Diagnostics::setSink([](std::string_view) {});
    }

    const QString& set(const std::uint8_t* data, std::size_t size)
    {
        QFile file(m_path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
            file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size)) < 0)
            std::abort();
        return m_path;
    }

private:
    QTemporaryDir m_directory;
    QString m_path;
};

} // namespace KOLT::Fuzz
