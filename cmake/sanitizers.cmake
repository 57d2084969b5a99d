# VELTOPROTOCOL_SANITIZE: instruments everything built here, for example "address,undefined" or "thread".
# The first finding ends the program.

set(VELTOPROTOCOL_SANITIZE "" CACHE STRING "Sanitizers, as the compiler's -fsanitize= takes them")

if(VELTOPROTOCOL_SANITIZE)
  add_compile_options(-fsanitize=${VELTOPROTOCOL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VELTOPROTOCOL_SANITIZE})
endif()

# Checks of what the language allows, for the library's own sources: they are written so that no number wraps
# around, loses digits or changes its sign unless a cast or a mask says that it may.
function(veltoprotocol_strict_sanitizers target)
  if(VELTOPROTOCOL_SANITIZE MATCHES "undefined" AND CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    set(ignored "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/sanitizers_ignored.txt")
    target_compile_options(${target} PRIVATE -fno-sanitize-recover=all "-fsanitize-ignorelist=${ignored}"
      -fsanitize=float-cast-overflow,float-divide-by-zero,implicit-conversion,local-bounds,nullability,unsigned-integer-overflow)
  endif()
endfunction()
