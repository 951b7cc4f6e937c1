#include "sys/pages.h"
#include "sys/undying.h"
#include "sys/windows/system.h"
#include <new>

namespace sys {

namespace {

constexpr std::size_t kSmallest = std::size_t{1} << 18; // below, the heap is faster

class Pages : public std::pmr::memory_resource {
  void* do_allocate(std::size_t bytes, std::size_t alignment) override {
    if (bytes < kSmallest) return std::pmr::new_delete_resource()->allocate(bytes, alignment);
    void* memory = VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (!memory) throw std::bad_alloc();
    return memory;
  }
  void do_deallocate(void* memory, std::size_t bytes, std::size_t alignment) override {
    if (bytes < kSmallest) return std::pmr::new_delete_resource()->deallocate(memory, bytes, alignment);
    VirtualFree(memory, 0, MEM_RELEASE);
  }
  bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override { return this == &other; }
};

} // namespace

std::pmr::memory_resource& pages() { return undying<Pages>(); }

} // namespace sys
