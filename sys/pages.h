#pragma once
// Memory for what is large and going to be filled.
#include <memory_resource>

namespace sys {

/// Whole pages straight from the system, zeroed, in huge ones as far as they fit: most of the cost of memory
/// is in the first touch of each page. For few, large pieces. Throws std::bad_alloc.
std::pmr::memory_resource& pages();

} // namespace sys
