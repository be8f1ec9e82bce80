# How every target of the tree is made. A room is a folder; its logic is plain C++20 and its forms are Qt Widgets.

add_library(vantrel_options INTERFACE)
target_compile_features(vantrel_options INTERFACE cxx_std_20)
target_include_directories(vantrel_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(vantrel_options INTERFACE VANTREL_VERSION="1.01")
target_compile_options(
  vantrel_options
  INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
            -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
            $<$<BOOL:${VANTREL_WARNINGS_AS_ERRORS}>:-Werror>)
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

# vantrel_logic(<room> SOURCES <file>... [USES <target>...]): plain C++20, never Qt.
function(vantrel_logic name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC vantrel_options ${ARG_USES})
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

# vantrel_program(<name> SOURCES <file>... USES <target>...): an installed program.
function(vantrel_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
  target_link_libraries(${name} PRIVATE vantrel_options ${ARG_USES})
endfunction()

# vantrel_test(<name> SOURCES <file>... USES <target>...): plain GoogleTest cases, one CTest test a case.
function(vantrel_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE vantrel_options GTest::gmock GTest::gtest_main ${ARG_USES})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 60)
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
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
                       PROPERTIES TIMEOUT 60 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
