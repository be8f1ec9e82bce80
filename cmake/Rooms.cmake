# SPDX-License-Identifier: MIT

# How every target of the tree is made. A room is a folder; its logic is plain C++20, its service, where it has one, uses
# Qt without Widgets, and its forms are Qt Widgets.

set(CMAKE_CXX_EXTENSIONS OFF)

add_library(vantrel_options INTERFACE)
target_compile_features(vantrel_options INTERFACE cxx_std_20)
target_include_directories(vantrel_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(vantrel_options INTERFACE VANTREL_VERSION="${PROJECT_VERSION}")
target_compile_options(
  vantrel_options
  INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
            -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
            $<$<BOOL:${VANTREL_WARNINGS_AS_ERRORS}>:-Werror>
            # Before version 13, GCC warns falsely of a text and a temporary std::string joined by + (its bug 105651).
            $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
if(VANTREL_SANITIZE)
  target_compile_options(vantrel_options INTERFACE -fsanitize=address,undefined
                                                   -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vantrel_options INTERFACE -fsanitize=address,undefined)
endif()
if(VANTREL_FUZZ)
  target_compile_options(vantrel_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                                   -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(vantrel_options INTERFACE -fsanitize=address,undefined)
endif()
if(VANTREL_HARDEN)
  include(CheckPIESupported)
  check_pie_supported()
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  # Nothing of a program tells where or when it was built, so that two builds make the same bytes.
  target_compile_options(vantrel_options INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
                                                   -fstack-protector-strong -Wdate-time
                                                   -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
                                                   -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
  target_link_options(vantrel_options INTERFACE -Wl,-z,relro,-z,now)
endif()

# vantrel_logic(<room> SOURCES <file>... [USES <target>...]): plain C++20, never Qt.
function(vantrel_logic name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC vantrel_options ${ARG_USES})
endfunction()

# vantrel_service(<room>_service SOURCES <file>... [USES <target>...]): Qt without Widgets; nothing where VANTREL_GUI is off.
function(vantrel_service name)
  if(NOT VANTREL_GUI)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_compile_definitions(${name} PUBLIC QT_NO_CAST_TO_ASCII QT_NO_FOREACH)
  target_link_libraries(${name} PUBLIC vantrel_options Qt6::Core ${ARG_USES})
endfunction()

# vantrel_forms(<room>_forms SOURCES <file>... [USES <target>...]): Qt Widgets; nothing where VANTREL_GUI is off.
function(vantrel_forms name)
  if(NOT VANTREL_GUI)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_compile_definitions(${name} PUBLIC QT_NO_CAST_TO_ASCII QT_NO_FOREACH)
  target_link_libraries(${name} PUBLIC vantrel_options Qt6::Widgets ${ARG_USES})
endfunction()

# vantrel_counted(<program>): tells which lines were run also where it ends at once; nothing where VANTREL_COVERAGE is off.
function(vantrel_counted name)
  if(VANTREL_COVERAGE)
    target_link_libraries(${name} PRIVATE coverage_exit)
  endif()
endfunction()

# vantrel_program(<name> SOURCES <file>... USES <target>...): an installed program.
function(vantrel_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
  target_link_libraries(${name} PRIVATE vantrel_options ${ARG_USES})
  vantrel_counted(${name})
endfunction()

# vantrel_pages(<program> TABLE <target> PAGE <file> COMPONENT <component>): makes and installs the program's manual page
# and its completions for bash and zsh. <target> defines commandline::ThisProgram; <file> is the page's own text.
function(vantrel_pages program)
  cmake_parse_arguments(ARG "" "TABLE;PAGE;COMPONENT" "" ${ARGN})
  set(maker make-${program}-pages)
  add_executable(${maker} ${PROJECT_SOURCE_DIR}/commandline/make_pages_main.cpp)
  target_link_libraries(${maker} PRIVATE ${ARG_TABLE} commandline)
  set(manual ${PROJECT_BINARY_DIR}/pages/${program}.1)
  set(bash ${PROJECT_BINARY_DIR}/pages/${program}.bash)
  set(zsh ${PROJECT_BINARY_DIR}/pages/_${program})
  get_filename_component(page ${ARG_PAGE} ABSOLUTE)
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/pages)
  add_custom_command(
    OUTPUT ${manual} ${manual}.gz ${bash} ${zsh}
    COMMAND ${maker} ${page} ${manual} ${bash} ${zsh}
    COMMAND gzip -9nkf ${manual}
    DEPENDS ${maker} ${page}
    VERBATIM)
  add_custom_target(${program}-pages ALL DEPENDS ${manual} ${bash} ${zsh})
  install(FILES ${manual}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${ARG_COMPONENT})
  install(FILES ${bash} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME ${program}
          COMPONENT ${ARG_COMPONENT})
  # Where Debian's zsh looks for what packages bring.
  install(FILES ${zsh} DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions COMPONENT ${ARG_COMPONENT})
endfunction()

# vantrel_test(<name> SOURCES <file>... USES <target>...): plain GoogleTest cases, one CTest test a case.
function(vantrel_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE vantrel_options GTest::gmock GTest::gtest_main ${ARG_USES})
  vantrel_counted(${name})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 60)
endfunction()

# vantrel_service_test(<name> SOURCES <file>... USES <target>...): cases that need Qt's event loop but no Widgets, which is
# checked.
function(vantrel_service_test name)
  if(NOT VANTREL_GUI)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE vantrel_options service_test_main Qt6::Test ${ARG_USES})
  vantrel_counted(${name})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT 60 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
  add_test(NAME ${name}.NeedsNoWidgets COMMAND ${PROJECT_SOURCE_DIR}/.ci/check-links $<TARGET_FILE:${name}>)
endfunction()

# vantrel_forms_test(<name> [MAIN <library>] SOURCES <file>... USES <target>...): cases that need windows, off-screen.
# MAIN holds the main function: forms_test_main, or console_test_main for cases with the whole console.
function(vantrel_forms_test name)
  if(NOT VANTREL_GUI)
    return()
  endif()
  cmake_parse_arguments(ARG "" "MAIN" "SOURCES;USES" ${ARGN})
  if(NOT ARG_MAIN)
    set(ARG_MAIN forms_test_main)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE vantrel_options ${ARG_MAIN} Qt6::Test ${ARG_USES})
  vantrel_counted(${name})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT 60 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()

# vantrel_screen_reader_test(<name> MAIN <library> SOURCES <file>... USES <target>...): cases in which a screen reader hears
# what a window tells it, one CTest test for all, on an X server of its own.
function(vantrel_screen_reader_test name)
  if(NOT VANTREL_GUI)
    return()
  endif()
  cmake_parse_arguments(ARG "" "MAIN" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE vantrel_options ${ARG_MAIN} Qt6::Test ${ARG_USES})
  add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/tests/support/with_screen_reader $<TARGET_FILE:${name}>)
  set_tests_properties(${name} PROPERTIES TIMEOUT 60)
endfunction()
