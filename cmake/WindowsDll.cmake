# Turns a shared library into the product: plain export names from the module definition file, and import
# libraries for MinGW and for MSVC that link callers of the public header.
#
# The definition file names each export with the stack bytes that it removes (Name@bytes), as the 32-bit
# calling convention decorates it. Where nothing is decorated (64 bits, MSVC's own matching of plain
# names) a copy without them is used.
function(zeapi_make_windows_dll target definitions)
  set(plain ${CMAKE_CURRENT_BINARY_DIR}/plain/ZEAPI1TD.def)
  file(READ ${definitions} text)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${definitions})
  string(REGEX REPLACE "@[0-9]+" "" text "${text}")
  file(CONFIGURE OUTPUT ${plain} CONTENT "${text}" @ONLY)

  set_target_properties(${target} PROPERTIES PREFIX "" OUTPUT_NAME ZEAPI1TD)
  if(MSVC)
    target_sources(${target} PRIVATE ${plain})
    return()
  endif()

  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(linked ${definitions})
    target_link_options(${target} PRIVATE -Wl,--kill-at)
    set(killAt -k)
    set(machine i386)
  else()
    set(linked ${plain})
    set(killAt)
    set(machine i386:x86-64)
  endif()
  target_sources(${target} PRIVATE ${linked})

  # The import libraries that the linker makes by itself do not link a caller of the header; these do.
  set(mingwImport ${CMAKE_BINARY_DIR}/lib/libZEAPI1TD.dll.a)
  set(msvcImport ${CMAKE_BINARY_DIR}/lib/ZEAPI1TD.lib)
  set_target_properties(${target} PROPERTIES
    ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/linker-import)
  find_program(ZEAPI_DLLTOOL ${ZEAPI_MINGW_PREFIX}-dlltool REQUIRED)
  find_program(ZEAPI_LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14)
  set(outputs ${mingwImport})
  set(makeMsvc)
  if(ZEAPI_LLVM_DLLTOOL)
    list(APPEND outputs ${msvcImport})
    set(makeMsvc COMMAND ${ZEAPI_LLVM_DLLTOOL} -m ${machine} ${killAt} -d ${linked} -D ZEAPI1TD.dll
                         -l ${msvcImport})
  endif()
  add_custom_command(OUTPUT ${outputs}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/lib
    COMMAND ${ZEAPI_DLLTOOL} ${killAt} -d ${linked} -D ZEAPI1TD.dll -l ${mingwImport}
    ${makeMsvc}
    DEPENDS ${linked} VERBATIM)
  add_custom_target(zeapi_import_libraries ALL DEPENDS ${outputs})
  set(ZEAPI_IMPORT_LIBRARIES ${outputs} PARENT_SCOPE)
endfunction()
