# The package for programs of others: find_package(vantrel) gives the target vantrel::protocol, with the frames, the
# judgement of a reply and its words, and the protocol's tables. Its headers are <vantrel/link/...> and
# <vantrel/protocol/...>.
include(CMakePackageConfigHelpers)
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)

add_library(vantrel_protocol STATIC $<TARGET_OBJECTS:link> $<TARGET_OBJECTS:protocol>)
set_target_properties(vantrel_protocol PROPERTIES LINKER_LANGUAGE CXX EXPORT_NAME protocol)
target_compile_features(vantrel_protocol INTERFACE cxx_std_20)
target_include_directories(
  vantrel_protocol INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
                             $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/vantrel>)
set(public_headers
    link/code_page.h
    link/frame.h
    link/reply.h
    link/status_text.h
    protocol/barcode.h
    protocol/command_data.h
    protocol/command_table.h
    protocol/control.h
    protocol/frame.h
    protocol/frame_reader.h
    protocol/frame_words.h
    protocol/line_receiver.h
    protocol/moment.h
    protocol/print_text.h
    protocol/status.h)
foreach(header IN LISTS public_headers)
  get_filename_component(room ${header} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vantrel/${room})
endforeach()

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/vantrel)
install(TARGETS vantrel_protocol EXPORT vantrel DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT vantrel NAMESPACE vantrel:: FILE vantrel-config.cmake DESTINATION ${package})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vantrel-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vantrel-config-version.cmake DESTINATION ${package})
unset(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME)
