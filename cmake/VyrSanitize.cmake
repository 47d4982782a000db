# With VYR_SANITIZE every target of the tree, plug-in fixtures included, is instrumented: a
# dlopen'd module must see the same sanitizer runtime as the program that loads it.
if(VYR_SANITIZE)
  set(VYR_SANITIZE_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_compile_options(${VYR_SANITIZE_FLAGS})
  add_link_options(${VYR_SANITIZE_FLAGS})
endif()
