# Compiler warnings for every target of the project.
function(perchdock_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow=local -Wno-unused-parameter)
  if(PERCHDOCK_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
