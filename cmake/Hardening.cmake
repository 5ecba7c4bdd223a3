# How the library's own code is built beyond the warnings.
add_library(zeapi_hardening INTERFACE)
if(NOT MSVC)
  target_compile_options(zeapi_hardening INTERFACE -fstack-protector-strong)
  # One compilation gives the same bytes wherever the checkout stands.
  target_compile_options(zeapi_hardening INTERFACE "-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.")
endif()
if(MINGW)
  target_link_options(zeapi_hardening INTERFACE -fstack-protector-strong)
  # The runtime is linked in, so that the DLL needs nothing but the system.
  target_link_options(zeapi_hardening INTERFACE
    -static -Wl,--dynamicbase -Wl,--nxcompat -Wl,--no-insert-timestamp)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # Floating-point rules give the same roundings as everywhere else only without the x87 unit.
    target_compile_options(zeapi_hardening INTERFACE -msse2 -mfpmath=sse)
  endif()
elseif(UNIX)
  target_link_options(zeapi_hardening INTERFACE -Wl,-z,relro,-z,now)
endif()
