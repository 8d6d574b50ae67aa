#pragma once

#include <QSize>

#include <vector>

namespace KOLT {
class DialogMain;
}

namespace Screenshots {

class Camera;

/// The tab of the library, and the windows of imports, engine, installations and notes; nothing
/// without a library in the settings. Nothing in the library is changed.
void takeLibrary(KOLT::DialogMain& window, Camera& camera, const std::vector<QSize>& sizes);

} // namespace Screenshots
