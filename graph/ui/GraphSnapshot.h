#pragma once

class QWidget;

namespace KOLT {

/// Asks for a file and saves a picture of the page in it; failures are reported in a box.
void saveSnapshot(QWidget* page);

} // namespace KOLT
