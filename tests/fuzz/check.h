#pragma once
#include <cstdio>
#include <cstdlib>

/// Ends the program, which is how a target tells that the input uncovered a fault.
inline void check(bool condition, const char* sentence) {
  if (condition) return;
  std::fprintf(stderr, "fault: %s\n", sentence);
  std::abort();
}
