#pragma once

#include <QString>

class QWidget;

/// The program's message boxes.
namespace KOLT::Messages {

/// Reports a failure. The text says what happened, to which file, and what to do.
void warn(QWidget* parent, const QString& text);

void inform(QWidget* parent, const QString& text);

/// Writes the file as replaceFile() does and warns the user on failure. True on success.
bool saveFile(QWidget* parent, const QString& path, const QByteArray& content);

} // namespace KOLT::Messages
