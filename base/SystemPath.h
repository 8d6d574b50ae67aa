#pragma once

#include <QString>

#include <filesystem>

/// Paths as the system has them, for what the toolkit's own classes do not offer.
namespace KOLT::System {

/// The same path for the standard library. Bytes would be taken for UTF-8 by it on a system whose
/// names are wide, where the toolkit gives them in another encoding.
std::filesystem::path nativePath(const QString& path);

/// With "/" between its parts, as the toolkit has it.
QString pathText(const std::filesystem::path& path);

/// Waits at most two seconds while another program holds an existing file in such a way that it
/// cannot be replaced: a virus scanner, an indexer or a backup takes each new file for a moment.
/// Returns at once where files can always be replaced.
void awaitReplaceable(const QString& path);

} // namespace KOLT::System
