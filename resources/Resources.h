#pragma once

/// Makes the files of kolt.qrc (icons, style sheet) known to the toolkit. They lie in a library,
/// from which the linker would drop them; call it once before the first is used.
void initKoltResources();
