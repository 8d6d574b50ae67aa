#pragma once

#include <QString>

class QWidget;

/// The program's message boxes.
namespace KOLT::Messages {

/// Something failed: what happened, to which file, and what to do.
void warn(QWidget* parent, const QString& text);

void inform(QWidget* parent, const QString& text);

/// Saves the settings, and tells the user when they cannot be written.
void saveSettings(QWidget* parent);

} // namespace KOLT::Messages
