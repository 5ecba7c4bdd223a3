# Turns a shared library into the product: plain export names from the module definition file, and import
# libraries for MinGW and for MSVC that link callers of the public header.
#
# The definition file names each export with the stack bytes that it removes (Name@bytes), as the 32-bit
# calling convention decorates it. Where nothing is decorated (64 bits, MSVC's own matching of plain
# names) a copy without them is used.
#
# Leaves in the folder lib/ of the build: ZEAPI1TD.def (the definitions that were linked),
# libZEAPI1TD.dll.a, and ZEAPI1TD.lib where llvm-dlltool is there to make it.
function(zeapi_make_windows_dll target definitions)
  set(folder ${PROJECT_BINARY_DIR}/lib)
  set(linked ${folder}/ZEAPI1TD.def)
  file(READ ${definitions} text)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${definitions})
  if(MSVC OR NOT CMAKE_SIZEOF_VOID_P EQUAL 4)
    string(REGEX REPLACE "@[0-9]+" "" text "${text}")
  endif()
  file(CONFIGURE OUTPUT ${linked} CONTENT "${text}" @ONLY)

  target_sources(${target} PRIVATE ${linked})
  set_target_properties(${target} PROPERTIES PREFIX "" OUTPUT_NAME ZEAPI1TD)
  if(MSVC)
    return()
  endif()

  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_link_options(${target} PRIVATE -Wl,--kill-at)
    set(killAt -k)
    set(machine i386)
  else()
    set(killAt)
    set(machine i386:x86-64)
  endif()
  # The objects of the runtime bring debug information that names the folders of their builder.
  target_link_options(${target} PRIVATE $<$<CONFIG:Release>:-s>)

  # The import library that the linker makes by itself does not link a caller of the header. It is
  # replaced at once, so that targets of this project and the installed package find the good one
  # under the name that they expect. dlltool writes the path of its output into it: a bare name, so
  # that it is the same wherever the build stands.
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_DLLTOOL} ${killAt} -d ${linked} -D ZEAPI1TD.dll
            -l $<TARGET_LINKER_FILE_NAME:${target}>
    WORKING_DIRECTORY ${folder} VERBATIM)

  find_program(ZEAPI_LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14)
  if(ZEAPI_LLVM_DLLTOOL)
    add_custom_command(TARGET ${target} POST_BUILD
      BYPRODUCTS ${folder}/ZEAPI1TD.lib
      COMMAND ${ZEAPI_LLVM_DLLTOOL} -m ${machine} ${killAt} -d ${linked} -D ZEAPI1TD.dll
              -l ${folder}/ZEAPI1TD.lib
      VERBATIM)
  else()
    message(STATUS "No llvm-dlltool here: the import library for MSVC is not made")
  endif()
endfunction()
