#pragma once
#include <stdexcept>

namespace res {

/// A resource is missing or its compiled form is damaged; what() says which and where, in UTF-8.
class Error : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

} // namespace res
