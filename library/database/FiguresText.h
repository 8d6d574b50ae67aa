#pragma once

#include "library/database/CycleFigures.h"

#include <QByteArray>

/// Figures and cycles as lines of text, between the processes of one program on one computer.
/// Numbers arrive bit for bit.
namespace KOLT::Library {

/// One line without its end.
QByteArray lineOf(const ArchivedCycle& cycle);
QByteArray lineOf(const FoundFigures& found);

/// None if the line is not whole.
std::optional<ArchivedCycle> cycleFrom(const QByteArray& line);
std::optional<FoundFigures> figuresFrom(const QByteArray& line);

} // namespace KOLT::Library
