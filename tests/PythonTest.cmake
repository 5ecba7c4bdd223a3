# Tests that are Python programs. They find what they share in tests/support, and end with 77 where
# something that they need is not on this host.
include_guard(GLOBAL)

find_program(ZEAPI_PYTHON python3 HINTS /usr/bin REQUIRED)

# Adds a test that runs a script of the current folder with the arguments behind it.
function(zeapi_add_python_test name script)
  add_test(NAME ${name} COMMAND ${ZEAPI_PYTHON} -B ${CMAKE_CURRENT_SOURCE_DIR}/${script} ${ARGN})
  set_tests_properties(${name} PROPERTIES SKIP_RETURN_CODE 77
    ENVIRONMENT_MODIFICATION PYTHONPATH=path_list_prepend:${PROJECT_SOURCE_DIR}/tests/support)
endfunction()
