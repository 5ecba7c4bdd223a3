# What every target of ours is compiled with.
add_library(zeapi_warnings INTERFACE)
if(MSVC)
  target_compile_options(zeapi_warnings INTERFACE /W4 /WX)
else()
  target_compile_options(zeapi_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wold-style-cast -Wundef -Werror)
  target_compile_options(zeapi_warnings INTERFACE
    $<$<COMPILE_LANGUAGE:C>:-Wno-old-style-cast -Wstrict-prototypes>)
endif()
