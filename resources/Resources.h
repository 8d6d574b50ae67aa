#pragma once

/// Registers icons, style sheet and translations. Call it once before their first use: the linker
/// drops resources of a static library that nobody refers to.
void initKoltResources();
