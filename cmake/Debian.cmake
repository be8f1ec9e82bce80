# SPDX-License-Identifier: MIT

# Debian packages, made by `cpack -G DEB` in the folder of a release that was configured with CMAKE_INSTALL_PREFIX=/usr: the
# programs with windows, those without, and what other people's programs are built with. Two builds of the same sources
# make the same bytes, wherever and whenever they are made.
set(VANTREL_MAINTAINER "The vantrel authors <maintainers@vantrel.example>" CACHE STRING "Who answers for the packages")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vantrel)
set(CPACK_PACKAGE_VENDOR "The vantrel authors")
set(CPACK_PACKAGE_CONTACT "${VANTREL_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL windows tools development)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
# Read by cpack before each package is made, and when what goes into the packages lies ready.
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/DebianSettings.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/DebianFiles.cmake)
set(CPACK_VANTREL_SOURCE_DIR ${PROJECT_SOURCE_DIR})
set(CPACK_VANTREL_RELEASE_DATE ${VANTREL_RELEASE_DATE})
set(CPACK_VANTREL_LIBDIR ${CMAKE_INSTALL_LIBDIR})

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Below every revision of Debian's own.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0vantrel1)
set(CPACK_DEBIAN_PACKAGE_SOURCE vantrel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${VANTREL_HOMEPAGE})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_WINDOWS_PACKAGE_NAME vantrel)
set(CPACK_DEBIAN_WINDOWS_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_WINDOWS_DESCRIPTION
    "console for a serial rewritable-card printer
One button a command: press it, answer what the command asks, and see
exactly what went over the line, what came back, and what it means. A
software printer with a window comes with it, so that everything can be
tried with no hardware.")

# The fonts are those of the printed cards.
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME vantrel-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "fonts-terminus-otb, fonts-unifont")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SUGGESTS "vantrel, wireshark | tshark, ser2net, socat")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION
    "software printer, sender and line captures for card printers
For serial rewritable-card printers, from a shell: a software printer that
answers as the real one would, with faults on demand; a sender of every
command, for scripts; and a program that shows, compares and converts
captures of the line. Needs no display.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvantrel-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS cmake)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
    "frames of serial rewritable-card printers, for C++
Composes the frames of a serial rewritable-card printer, judges its replies,
reads what goes over the line and puts it into words. Headers, a static
library and a package for CMake.")
include(CPack)
