# SPDX-License-Identifier: MIT

# cmake --build FOLDER --target api-docs: the documentation of the package's headers, in FOLDER/api/html, by Doxygen.
find_program(DOXYGEN doxygen)
mark_as_advanced(DOXYGEN)
if(NOT DOXYGEN)
  return()
endif()
list(TRANSFORM public_headers PREPEND ${PROJECT_SOURCE_DIR}/ OUTPUT_VARIABLE api_headers)
set(api_inputs ${PROJECT_SOURCE_DIR}/docs/api/start.md ${PROJECT_SOURCE_DIR}/docs/api/namespaces.dox ${api_headers})
list(TRANSFORM api_inputs REPLACE "(.+)" "\"\\1\"")
list(JOIN api_inputs " " api_inputs)
configure_file(${PROJECT_SOURCE_DIR}/docs/api/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
add_custom_target(
  api-docs
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${PROJECT_BINARY_DIR}/api
  COMMAND ${DOXYGEN} ${PROJECT_BINARY_DIR}/Doxyfile
  VERBATIM)
