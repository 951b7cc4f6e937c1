#include "sys/pages.h"
#include "sys/undying.h"
#include <cstdint>
#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace sys {

namespace {

constexpr std::size_t kHugePage = std::size_t{2} << 20;
constexpr std::size_t kSmallest = std::size_t{1} << 18; // below, the heap is faster

std::size_t wholePages(std::size_t bytes) {
  static const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
  return (bytes + page - 1) / page * page;
}

/// What is mapped for so many bytes: whole huge pages, and small ones behind them for a small rest. A rest of
/// small pages costs more than a huge page long before it fills one.
std::size_t mappedSize(std::size_t bytes) {
  const std::size_t rest = bytes % kHugePage;
  return rest < kHugePage / 4 ? bytes - rest + wholePages(rest) : bytes - rest + kHugePage;
}

/// Maps memory that begins where a huge page can.
char* mapAligned(std::size_t size) {
  void* memory =
      ::mmap(nullptr, size + kHugePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::bad_alloc();
  const std::size_t before = -reinterpret_cast<std::uintptr_t>(memory) % kHugePage;
  char* const begin = static_cast<char*>(memory) + before;
  if (before != 0) ::munmap(memory, before);
  ::munmap(begin + size, kHugePage - before);
  return begin;
}

class Pages : public std::pmr::memory_resource {
  void* do_allocate(std::size_t bytes, std::size_t alignment) override {
    if (bytes < kSmallest) return std::pmr::new_delete_resource()->allocate(bytes, alignment);
    const std::size_t size = mappedSize(bytes);
    char* const memory = mapAligned(size);
    const std::size_t huge = size / kHugePage * kHugePage;
    // Where the system does not know these, it takes longer.
    if (huge != 0) ::madvise(memory, huge, MADV_HUGEPAGE);
    if (huge != size) ::madvise(memory + huge, size - huge, MADV_POPULATE_WRITE);
    return memory;
  }
  void do_deallocate(void* memory, std::size_t bytes, std::size_t alignment) override {
    if (bytes < kSmallest) return std::pmr::new_delete_resource()->deallocate(memory, bytes, alignment);
    ::munmap(memory, mappedSize(bytes));
  }
  bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override { return this == &other; }
};

} // namespace

std::pmr::memory_resource& pages() { return undying<Pages>(); }

} // namespace sys
