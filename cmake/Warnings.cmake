# What every target of ours is compiled with; plain: what a C program is often compiled with and no more, for
# the callers among the tests.
add_library(zeapi_warnings INTERFACE)
add_library(zeapi_plain_warnings INTERFACE)
if(MSVC)
  target_compile_options(zeapi_warnings INTERFACE /W4 /WX)
  target_compile_options(zeapi_plain_warnings INTERFACE /W4 /WX)
else()
  target_compile_options(zeapi_plain_warnings INTERFACE -Wall -Wextra -Wpedantic -Werror)
  target_compile_options(zeapi_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wundef -Werror
    $<$<COMPILE_LANGUAGE:CXX>:-Wold-style-cast> $<$<COMPILE_LANGUAGE:C>:-Wstrict-prototypes>)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees an overlap in "literal" + std::string where there is none.
    target_compile_options(zeapi_warnings INTERFACE -Wno-restrict)
  endif()
endif()
