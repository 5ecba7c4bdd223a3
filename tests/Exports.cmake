# The exports of the library, for tests that compare something with them.
include_guard(GLOBAL)

set(ZEAPI_DEFINITIONS ${PROJECT_SOURCE_DIR}/src/api/ZEAPI1TD.def)

# Sets a variable of the caller to the entries of the module definition file, as Name@bytes.
function(zeapi_read_exports result)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${ZEAPI_DEFINITIONS})
  file(STRINGS ${ZEAPI_DEFINITIONS} exports REGEX "^ +[A-Za-z0-9]+@[0-9]+")
  list(TRANSFORM exports REPLACE "^ +([A-Za-z0-9]+@[0-9]+).*" "\\1")
  set(${result} ${exports} PARENT_SCOPE)
endfunction()
