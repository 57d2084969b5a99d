# The house's warnings. A plain build never fails because of one: only VELTOPROTOCOL_WARNINGS_AS_ERRORS,
# which every preset turns on, makes them errors.

function(veltoprotocol_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic
    $<$<BOOL:${VELTOPROTOCOL_WARNINGS_AS_ERRORS}>:-Werror>)
endfunction()

# For the library itself, where a silent conversion is a wrong byte.
function(veltoprotocol_strict_warnings target)
  veltoprotocol_warnings(${target})
  target_compile_options(${target} PRIVATE -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast)
endfunction()
