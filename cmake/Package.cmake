# SPDX-License-Identifier: MIT

# The package for programs of others: find_package(vantrel) gives
#   vantrel::link       frames in hex text, the judgement of a reply and its words, code pages
#   vantrel::printdata  what is printed: the data of 41h, 42h and 4Eh
#   vantrel::protocol   what goes over the line, read: frames, each command's data as a value and in words, statuses
# Each brings what it needs; its headers are <vantrel/ROOM/...>.
include(CMakePackageConfigHelpers)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/vantrel)
set(public_headers)

# vantrel_package_library(<room> HEADERS <file>... [EXCEPT <source>...] [USES <room>...]): a static library of a room's
# logic, with the headers that others may include. It is made of what the room is made of, but for EXCEPT.
function(vantrel_package_library room)
  cmake_parse_arguments(ARG "" "" "HEADERS;EXCEPT;USES" ${ARGN})
  set(objects $<TARGET_OBJECTS:${room}>)
  foreach(source IN LISTS ARG_EXCEPT)
    set(objects $<FILTER:${objects},EXCLUDE,/${source}>)
  endforeach()
  add_library(vantrel_${room} STATIC ${objects})
  set_target_properties(vantrel_${room} PROPERTIES LINKER_LANGUAGE CXX EXPORT_NAME ${room})
  target_compile_features(vantrel_${room} INTERFACE cxx_std_20)
  # Headers of a room include one another as they do in the tree.
  target_include_directories(
    vantrel_${room} INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
                              $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/vantrel>)
  foreach(used IN LISTS ARG_USES)
    target_link_libraries(vantrel_${room} INTERFACE vantrel_${used})
  endforeach()
  list(TRANSFORM ARG_HEADERS PREPEND ${room}/)
  install(FILES ${ARG_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vantrel/${room} COMPONENT development)
  install(TARGETS vantrel_${room} EXPORT vantrel DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  set(public_headers ${public_headers} ${ARG_HEADERS} PARENT_SCOPE)
endfunction()

vantrel_package_library(link HEADERS code_page.h frame.h reply.h status_text.h)
vantrel_package_library(printdata HEADERS barcode.h esc_sequence.h print_buffer.h EXCEPT esc_prompt USES link)
vantrel_package_library(
  protocol
  HEADERS barcode.h
          card_face.h
          command_data.h
          command_table.h
          control.h
          frame.h
          frame_reader.h
          frame_words.h
          line_receiver.h
          moment.h
          print_text.h
          status.h
  USES link)

install(EXPORT vantrel NAMESPACE vantrel:: FILE vantrel-config.cmake DESTINATION ${package} COMPONENT development)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vantrel-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vantrel-config-version.cmake DESTINATION ${package} COMPONENT development)
