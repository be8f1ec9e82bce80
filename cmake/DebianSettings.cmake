# SPDX-License-Identifier: MIT

# Read by cpack: what depends on the revision, and the date that every file in the packages gets.
execute_process(COMMAND date --utc --date ${CPACK_VANTREL_RELEASE_DATE} +%s OUTPUT_VARIABLE epoch
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(ENV{SOURCE_DATE_EPOCH} ${epoch})
set(ENV{LC_ALL} C.UTF-8)
set(ENV{TZ} UTC)
set(CPACK_DEBIAN_WINDOWS_PACKAGE_DEPENDS
    "vantrel-tools (= ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), fontconfig, fonts-dejavu-core, fonts-droid-fallback")
# Each package begins its description itself.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
