# VELTOPROTOCOL_SANITIZE: instruments everything built here, for example "address,undefined" or "thread".
# The first finding ends the program.

set(VELTOPROTOCOL_SANITIZE "" CACHE STRING "Sanitizers, as the compiler's -fsanitize= takes them")

if(VELTOPROTOCOL_SANITIZE)
  add_compile_options(-fsanitize=${VELTOPROTOCOL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VELTOPROTOCOL_SANITIZE})
endif()
