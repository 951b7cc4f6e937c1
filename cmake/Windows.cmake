# What the Windows target needs besides the compiler: header libraries of the build system's packages, the compiler's own
# libraries beside the programs, and versions in every binary.
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/windows)
enable_language(RC)

# Wide functions of the system, as of Windows 10, and printf of the C++ standard.
add_compile_definitions(UNICODE _UNICODE _WIN32_WINNT=0x0A00 __USE_MINGW_ANSI_STDIO=1)
# Only what a library exports on purpose or with everything of its own: not the static libraries inside it. Debuggers of
# Windows do not read what the compiler would write for them.
add_link_options(-Wl,--exclude-libs,ALL -s)

# Header libraries stand among the headers of the build system, which are not for this target: a folder of links to them.
set(forwarded ${CMAKE_BINARY_DIR}/include)
file(MAKE_DIRECTORY ${forwarded} ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
foreach(library boost CLI nlohmann)
  if(NOT IS_DIRECTORY /usr/include/${library})
    message(FATAL_ERROR "There is no /usr/include/${library}: see tools/setup.")
  endif()
  file(CREATE_LINK /usr/include/${library} ${forwarded}/${library} SYMBOLIC)
endforeach()
include_directories(SYSTEM ${forwarded})

# One copy of the compiler's libraries, shared by everything in the folder: exceptions and strings cross library borders.
foreach(library libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library} OUTPUT_VARIABLE found
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT EXISTS ${found})
    set(found /usr/x86_64-w64-mingw32/lib/${library})
  endif()
  configure_file(${found} ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${library} COPYONLY)
endforeach()

# hb_utf8_program(TARGET): a program whose narrow code page is UTF-8, so that what it writes is the same on every system.
function(hb_utf8_program target)
  set(manifest ${CMAKE_SOURCE_DIR}/cmake/windows/utf8.manifest)
  configure_file(${CMAKE_SOURCE_DIR}/cmake/windows/program.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${target}_manifest.rc)
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}_manifest.rc)
endfunction()

# hb_version(TARGET DESCRIPTION): version information, as the system shows it among the properties of a file.
function(hb_version target description)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "EXECUTABLE")
    set(file_type VFT_APP)
    set(file_name ${target}.exe)
  else()
    set(file_type VFT_DLL)
    set(file_name ${target}.dll)
  endif()
  configure_file(${CMAKE_SOURCE_DIR}/cmake/windows/version.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
endfunction()
