# Warning policy shared by the library, tests, tools and benchmarks.
function(pixmoor_set_warnings target)
  target_compile_options(${target} PRIVATE
    $<$<OR:$<CXX_COMPILER_ID:GNU>,$<CXX_COMPILER_ID:Clang>>:-Wall -Wextra>
    $<$<BOOL:${PIXMOOR_WERROR}>:-Werror>)
endfunction()
