# Packs a build and unpacks it elsewhere, as its users do. The files are then in WORK/moved.
# Usage: cmake -DCPACK=... -DBUILD=... -DCONFIG=... -DWORK=... -P install.cmake
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
execute_process(
  COMMAND ${CPACK} --config ${BUILD}/CPackConfig.cmake -C ${CONFIG} -B ${WORK}/package
          -D CPACK_PACKAGE_FILE_NAME=zeapi -D CPACK_DEBIAN_FILE_NAME=zeapi.deb
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
if(EXISTS ${WORK}/package/zeapi.deb)
  execute_process(
    COMMAND dpkg-deb --extract ${WORK}/package/zeapi.deb ${WORK}/unpacked COMMAND_ERROR_IS_FATAL ANY)
  file(RENAME ${WORK}/unpacked/usr ${WORK}/moved)
else()
  file(ARCHIVE_EXTRACT INPUT ${WORK}/package/zeapi.zip DESTINATION ${WORK}/unpacked)
  file(RENAME ${WORK}/unpacked/zeapi ${WORK}/moved)
endif()
file(REMOVE_RECURSE ${WORK}/package)
