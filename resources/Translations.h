#pragma once

/// Registers the translations below ":/trl". Call it once before their first use: the linker drops
/// resources of a static library that nobody refers to.
void initKoltTranslations();
