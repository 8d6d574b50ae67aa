#pragma once

#include <cstddef>
#include <optional>
#include <string>

/// Calls to the operating system for what neither C++ nor Qt offers. Each function works on every
/// system.
namespace KOLT::System {

/// As on the common processors.
constexpr std::size_t hugePageBytes = std::size_t{2} << 20;

/// Memory for large amounts of data, in huge pages where the system has them: touching half a
/// gigabyte in small pages takes longer than reading it from a file. Release it with std::free;
/// throws std::bad_alloc.
void* allocateHugePages(std::size_t bytes);

/// Memory that can still be allocated, in bytes; none where the system does not tell.
std::optional<double> availableMemory();

/// The current working directory in the system's own encoding; empty where it is gone or longer
/// than 255 bytes.
std::string workingDirectory();

} // namespace KOLT::System
