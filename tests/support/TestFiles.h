#pragma once

#include "base/Diagnostics.h"

#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <string>

namespace KOLT::Test {

/// Writes the file; false on failure.
inline bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

inline QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Captures the diagnostic output as long as it lives.
class DiagnosticsCapture
{
public:
    DiagnosticsCapture()
        : m_previous(Diagnostics::setSink([this](std::string_view text) { m_text += text; }))
    {
    }

    ~DiagnosticsCapture() { Diagnostics::setSink(m_previous); }

    DiagnosticsCapture(const DiagnosticsCapture&) = delete;
    DiagnosticsCapture& operator=(const DiagnosticsCapture&) = delete;

    QString text() const { return QString::fromStdString(m_text); }

private:
    std::string m_text;
    Diagnostics::Sink m_previous;
};

} // namespace KOLT::Test
