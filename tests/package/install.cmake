# Packs a build and unpacks it elsewhere, as its users do. The files are then in WORK/moved.
# Usage: cmake -DCPACK=... -DBUILD=... -DCONFIG=... -DWORK=... -P install.cmake
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
execute_process(
  COMMAND ${CPACK} --config ${BUILD}/CPackConfig.cmake -C ${CONFIG} -B ${WORK}/package
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB packages ${WORK}/package/*.deb ${WORK}/package/*.zip)
list(LENGTH packages count)
if(NOT count EQUAL 1)
  message(FATAL_ERROR "one package was to be made, not ${count}: ${packages}")
endif()

if(packages MATCHES "\\.deb$")
  execute_process(COMMAND dpkg-deb --extract ${packages} ${WORK}/unpacked COMMAND_ERROR_IS_FATAL ANY)
  file(RENAME ${WORK}/unpacked/usr ${WORK}/moved)
else()
  file(ARCHIVE_EXTRACT INPUT ${packages} DESTINATION ${WORK}/unpacked)
  cmake_path(GET packages STEM LAST_ONLY name)
  file(RENAME ${WORK}/unpacked/${name} ${WORK}/moved)
endif()
file(REMOVE_RECURSE ${WORK}/package)
