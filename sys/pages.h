#pragma once
// Memory for what is large and going to be filled.
#include <memory_resource>

namespace sys {

/// Large pieces come straight from the system, in huge pages as far as they fit: most of the cost of memory
/// is in the first touch of each page. Small ones come from the heap. Throws std::bad_alloc.
std::pmr::memory_resource& pages();

} // namespace sys
