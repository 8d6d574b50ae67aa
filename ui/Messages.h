#pragma once

#include <QString>

class QWidget;

/// The program's message boxes, and the failures that several windows have to tell.
namespace KOLT::Messages {

/// Something failed: what happened, to which file, and what to do.
void warn(QWidget* parent, const QString& text);

void inform(QWidget* parent, const QString& text);

/// Replaces the file by the content, whole or not at all, and tells the user when it cannot be
/// written. True on success.
bool saveFile(QWidget* parent, const QString& path, const QByteArray& content);

} // namespace KOLT::Messages
