# SPDX-License-Identifier: MIT

# Run by cpack when what goes into the packages lies ready, a folder each: what Debian wants in every package.
function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(GLOB libraries ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/development/usr/${CPACK_VANTREL_LIBDIR}/*.a)
run(strip --strip-debug --remove-section=.comment --remove-section=.note --enable-deterministic-archives ${libraries})

set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} key)
  set(package ${CPACK_DEBIAN_${key}_PACKAGE_NAME})
  set(root ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component})
  set(documents ${root}/usr/share/doc/${package})
  run(install -d -m 755 ${documents})
  run(install -m 644 ${CPACK_VANTREL_SOURCE_DIR}/packaging/copyright ${documents}/copyright)
  run(install -m 644 ${CPACK_VANTREL_SOURCE_DIR}/CHANGELOG.md ${documents}/changelog)
  run(${CPACK_VANTREL_SOURCE_DIR}/packaging/debian-changelog ${package} ${version} ${CPACK_PACKAGE_CONTACT}
      ${documents}/changelog.Debian)
  run(gzip -9n ${documents}/changelog ${documents}/changelog.Debian)
  run(${CPACK_VANTREL_SOURCE_DIR}/packaging/sbom ${package} ${version} ${CPACK_DEBIAN_PACKAGE_HOMEPAGE} ${root})
endforeach()
