# With VYR_FUZZ the fuzz targets of fuzz/ are linked with libFuzzer (clang only). Everything they
# reach, libvyrcore and libvyrmemory included, is instrumented for coverage, AddressSanitizer and
# UndefinedBehaviorSanitizer; any sanitizer report stops the run as a crash. Long runs may drop
# AddressSanitizer (VYR_FUZZ_SANITIZERS=undefined): its allocator costs most of an execution of the
# targets that build references, and the short runs of every CI run keep it.
option(VYR_FUZZ "Build the libFuzzer targets of fuzz/ (needs CMAKE_CXX_COMPILER=clang++)" OFF)
set(VYR_FUZZ_SANITIZERS "address,undefined" CACHE STRING
    "Sanitizers the fuzz build instruments everything with (comma-separated, as -fsanitize takes)")
if(VYR_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "VYR_FUZZ needs clang: configure with -DCMAKE_CXX_COMPILER=clang++")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link,${VYR_FUZZ_SANITIZERS} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VYR_FUZZ_SANITIZERS})
endif()
