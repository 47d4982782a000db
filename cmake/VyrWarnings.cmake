# Our warnings stay ours: they are set PRIVATE on our own targets and never exported.
function(vyr_set_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
endfunction()
