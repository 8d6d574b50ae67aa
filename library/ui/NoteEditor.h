#pragma once

#include <QString>

#include <optional>

class QWidget;

namespace KOLT {

/// Asks for the text of a note, in lines that are wrapped. None if the user gave up, or it is
/// empty.
std::optional<QString> askForNote(QWidget* parent, const QString& label, const QString& text = {});

} // namespace KOLT
