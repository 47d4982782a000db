# With VYR_FUZZ the fuzz targets of fuzz/ are linked with libFuzzer (clang only). Everything they
# reach, libvyrcore and libvyrmemory included, is instrumented for coverage, AddressSanitizer and
# UndefinedBehaviorSanitizer; any sanitizer report stops the run as a crash.
option(VYR_FUZZ "Build the libFuzzer targets of fuzz/ (needs CMAKE_CXX_COMPILER=clang++)" OFF)
if(VYR_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "VYR_FUZZ needs clang: configure with -DCMAKE_CXX_COMPILER=clang++")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
