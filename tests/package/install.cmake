# Installs a build into a fresh prefix and moves that away, as a package is moved to its users.
# Usage: cmake -DBUILD=... -DCONFIG=... -DWORK=... -P install.cmake; leaves the prefix in WORK/moved.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
execute_process(
  COMMAND ${CMAKE_COMMAND} --install ${BUILD} --config ${CONFIG} --prefix ${WORK}/installed
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${WORK}/installed ${WORK}/moved)
