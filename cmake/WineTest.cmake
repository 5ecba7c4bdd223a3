# Tests of Windows programs on this host run under Wine, all in one Wine prefix of the build tree. It is
# made by the fixture "wine_prefix" when the first test needs it, and nothing of Wine is left running
# when the tests are over. On Windows itself, and in native builds, none of this is needed.
include_guard(GLOBAL)

if(WIN32 AND CMAKE_CROSSCOMPILING)
  set(ZEAPI_WINE ON CACHE INTERNAL "Tests run under Wine")
else()
  set(ZEAPI_WINE OFF CACHE INTERNAL "Tests run under Wine")
endif()

# Gives tests what they need to run under Wine; does nothing where there is no Wine. Call it in the
# folder that adds the tests. They run one at a time: they share drive C and with it the debug log.
function(zeapi_add_wine_env)
  if(NOT ZEAPI_WINE)
    return()
  endif()
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(arch win32)
  else()
    set(arch win64)
  endif()
  set_property(TEST ${ARGN} APPEND PROPERTY ENVIRONMENT_MODIFICATION
    WINEPREFIX=set:${CMAKE_BINARY_DIR}/wineprefix
    WINEARCH=set:${arch}
    WINEDEBUG=set:-all
    WINEDLLOVERRIDES=set:mscoree,mshtml=
    DISPLAY=unset:)
  set_property(TEST ${ARGN} APPEND PROPERTY FIXTURES_REQUIRED wine_prefix)
  set_property(TEST ${ARGN} APPEND PROPERTY RESOURCE_LOCK wine_prefix)
endfunction()

if(ZEAPI_WINE AND ZEAPI_TESTS)
  # The marker is written last, so that a prefix whose making was interrupted is made again. The server
  # is started here, apart from any test's output, and stays for a minute after the last program: a
  # test that had to start it would not end before it does.
  set(make "rm -rf \"$WINEPREFIX\" && wineboot --init && wineserver -w && touch \"$WINEPREFIX/made\"")
  add_test(NAME wine_prefix COMMAND sh -c
    "{ test -f \"$WINEPREFIX/made\" || { ${make}; }; } && { wineserver -p60; wineboot; } >/dev/null 2>&1")
  add_test(NAME wine_prefix_end COMMAND sh -c "wineserver -k; wineserver -w")
  zeapi_add_wine_env(wine_prefix wine_prefix_end)
  set_tests_properties(wine_prefix PROPERTIES FIXTURES_REQUIRED "" FIXTURES_SETUP wine_prefix)
  set_tests_properties(wine_prefix_end PROPERTIES FIXTURES_REQUIRED "" FIXTURES_CLEANUP wine_prefix)
endif()
