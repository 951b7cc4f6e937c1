# Header only; found through the forwarded headers.
if(NOT TARGET CLI11::CLI11)
  add_library(CLI11::CLI11 INTERFACE IMPORTED)
endif()
set(CLI11_FOUND TRUE)
