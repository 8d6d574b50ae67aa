#pragma once

#include <cstddef>
#include <optional>
#include <string>

/// What is asked of the operating system directly, where neither the language nor the toolkit has a
/// way. Each function has one for every system.
namespace KOLT::System {

/// Of the common processors.
constexpr std::size_t hugePageBytes = std::size_t{2} << 20;

/// Memory for much data, in huge pages where the system has them: touching half a gigabyte in
/// small ones takes longer than reading it from a file. Given back with std::free; throws
/// std::bad_alloc.
void* allocateHugePages(std::size_t bytes);

/// Memory that can still be allocated, in bytes; none where the system does not tell.
std::optional<double> availableMemory();

/// The current working directory in the system's own encoding; empty where it is gone or longer
/// than 255 bytes.
std::string workingDirectory();

} // namespace KOLT::System
