# The manual page of the program, made by asking the program: man/zeapi.1. Not where the program runs
# elsewhere, nor under sanitizers, which nobody installs.
set(ZEAPI_MAN_PAGE)
if(NOT TARGET zeapi_program OR CMAKE_CROSSCOMPILING OR ZEAPI_SANITIZE)
  return()
endif()
find_program(ZEAPI_PYTHON python3 HINTS /usr/bin)
if(NOT ZEAPI_PYTHON)
  message(STATUS "No Python, so no manual page of zeapi.")
  return()
endif()

set(ZEAPI_MAN_PAGE ${PROJECT_BINARY_DIR}/man/zeapi.1)
set(manPageScript ${PROJECT_SOURCE_DIR}/scripts/man_page.py)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/man)
add_custom_command(OUTPUT ${ZEAPI_MAN_PAGE}
  COMMAND ${ZEAPI_PYTHON} -B ${manPageScript} $<TARGET_FILE:zeapi_program> ${ZEAPI_MAN_PAGE}
  DEPENDS zeapi_program ${manPageScript}
  COMMENT "Making the manual page of zeapi" VERBATIM)
add_custom_target(zeapi_man_page ALL DEPENDS ${ZEAPI_MAN_PAGE})
