# Links a caller of the public header with each import library, in each way that can be tried here.
# Adds its programs to `callers` and its tests to `wineTests`.

set(mingwImport ${CMAKE_BINARY_DIR}/lib/libZEAPI1TD.dll.a)
set(msvcImport ${CMAKE_BINARY_DIR}/lib/ZEAPI1TD.lib)

# One that MinGW's linker links.
function(add_mingw_caller name importLibrary)
  add_executable(${name} import_caller.c)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/include)
  target_link_libraries(${name} PRIVATE ${importLibrary} zeapi_plain_warnings)
  target_link_options(${name} PRIVATE -static)
  set_target_properties(${name} PROPERTIES LINK_DEPENDS ${importLibrary})
  add_dependencies(${name} zeapi_shared)
  add_test(NAME ${name} COMMAND ${name})
endfunction()

add_mingw_caller(abi_caller_mingw ${mingwImport})
list(APPEND callers abi_caller_mingw)
list(APPEND wineTests abi_caller_mingw)

if(NOT ZEAPI_LLVM_DLLTOOL)
  message(STATUS "No ZEAPI1TD.lib here (llvm-dlltool is missing): callers of it are not tried")
  return()
endif()
add_mingw_caller(abi_caller_msvc_lib ${msvcImport})
list(APPEND callers abi_caller_msvc_lib)
list(APPEND wineTests abi_caller_msvc_lib)

# One made as MSVC makes it, with the compiler and the linker that stand in for it on other hosts.
find_program(ZEAPI_CLANG NAMES clang clang-14)
find_program(ZEAPI_LLD_LINK NAMES lld-link lld-link-14)
if(NOT ZEAPI_CLANG OR NOT ZEAPI_LLD_LINK)
  message(STATUS "No clang or lld-link here: an MSVC caller of ZEAPI1TD.lib is not tried")
  return()
endif()
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(target i686-pc-windows-msvc)
else()
  set(target x86_64-pc-windows-msvc)
endif()
set(object ${CMAKE_CURRENT_BINARY_DIR}/import_caller_msvc.obj)
set(program $<TARGET_FILE_DIR:zeapi_shared>/abi_caller_msvc.exe)
set(stamp ${CMAKE_CURRENT_BINARY_DIR}/abi_caller_msvc.stamp)
add_custom_command(OUTPUT ${stamp}
  COMMAND ${ZEAPI_CLANG} --target=${target} -std=c11 -ffreestanding -O1
          $<TARGET_PROPERTY:zeapi_plain_warnings,INTERFACE_COMPILE_OPTIONS> -I ${PROJECT_SOURCE_DIR}/include
          -c ${CMAKE_CURRENT_SOURCE_DIR}/import_caller.c -o ${object}
  COMMAND ${ZEAPI_LLD_LINK} -nologo -nodefaultlib -entry:main -subsystem:console -safeseh:no
          -out:${program} ${object} ${msvcImport}
  COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
  DEPENDS import_caller.c ${PROJECT_SOURCE_DIR}/include/zeapi.h ${msvcImport}
          zeapi_shared
  VERBATIM COMMAND_EXPAND_LISTS)
add_custom_target(abi_caller_msvc ALL DEPENDS ${stamp})
add_test(NAME abi_caller_msvc COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} ${program})
list(APPEND wineTests abi_caller_msvc)
