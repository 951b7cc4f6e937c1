# Resource scripts, compiled by a stock resource compiler.
find_program(RESOURCE_COMPILER NAMES x86_64-w64-mingw32-windres windres)
find_program(LLVM_RC NAMES llvm-rc llvm-rc-14)
set(resource_include ${CMAKE_SOURCE_DIR}/module/res)

# compile_resources(SCRIPT OUTPUT): the binary form of a script, which may include headers of module/res.
function(compile_resources script output)
  file(GLOB headers ${resource_include}/*.h ${resource_include}/icons/*)
  if(RESOURCE_COMPILER)
    add_custom_command(OUTPUT ${output} DEPENDS ${script} ${headers} ${ARGN} VERBATIM
      COMMENT "Compiling ${script}"
      COMMAND ${RESOURCE_COMPILER} -O res -I ${resource_include} --preprocessor=${CMAKE_CXX_COMPILER}
              --preprocessor-arg=-E --preprocessor-arg=-xc --preprocessor-arg=-DRC_INVOKED ${script} ${output})
  elseif(LLVM_RC)
    add_custom_command(OUTPUT ${output} DEPENDS ${script} ${headers} ${ARGN} VERBATIM
      COMMENT "Compiling ${script}"
      COMMAND ${CMAKE_CXX_COMPILER} -E -P -xc -DRC_INVOKED -I ${resource_include} -o ${output}.rc ${script}
      COMMAND ${LLVM_RC} /no-preprocess /I ${resource_include} /FO ${output} ${output}.rc)
  else()
    message(FATAL_ERROR "No resource compiler: install binutils-mingw-w64-x86-64 or llvm.")
  endif()
endfunction()

# embed_bytes(INPUT OUTPUT FUNCTION HEADER): a C++ source OUTPUT whose FUNCTION, declared by HEADER, gives the bytes of
# INPUT.
function(embed_bytes input output function header)
  set(script ${CMAKE_SOURCE_DIR}/cmake/EmbedBytes.cmake)
  add_custom_command(OUTPUT ${output} DEPENDS ${input} ${script} VERBATIM
    COMMAND ${CMAKE_COMMAND} -D INPUT=${input} -D OUTPUT=${output} -D FUNCTION=${function}
            -D HEADER=${header} -P ${script})
endfunction()
