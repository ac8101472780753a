# Debian packages, one a component: `make package`, or cpack in a build folder.

set(ORVEX_MAINTAINER "Developers of Orvex <developers@orvex.invalid>" CACHE STRING "Who answers for the packages")

find_program(ORVEX_DPKG_SHLIBDEPS dpkg-shlibdeps)
find_program(ORVEX_FILE file)
mark_as_advanced(ORVEX_DPKG_SHLIBDEPS ORVEX_FILE)
if(NOT ORVEX_DPKG_SHLIBDEPS OR NOT ORVEX_FILE)
    message(STATUS "Packages are off: dpkg-shlibdeps (dpkg-dev) or file was not found")
    return()
endif()

# orvex_package(<component> <package> SECTION ... DESCRIPTION ... [NEEDS components of exactly this version]
#               [DEPENDS packages] [RECOMMENDS packages] [CONTROL files])
set(CPACK_COMPONENTS_ALL "")
macro(orvex_package component name)
    cmake_parse_arguments(ARG "" "SECTION;DESCRIPTION;DEPENDS;RECOMMENDS" "NEEDS;CONTROL" ${ARGN})
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${ARG_SECTION})
    set(CPACK_DEBIAN_${upper}_DESCRIPTION "${ARG_DESCRIPTION}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${ARG_DEPENDS}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_RECOMMENDS "${ARG_RECOMMENDS}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_CONTROL_EXTRA "${ARG_CONTROL}")
    set(CPACK_COMPONENT_${upper}_DEPENDS ${ARG_NEEDS})
endmacro()

# What is built against the library needs exactly this release: before release 1 each may change the interface.
set(library libktloxugeom${PROJECT_VERSION_MAJOR})
set(control ${PROJECT_BINARY_DIR}/${library})
file(CONFIGURE OUTPUT ${control}/triggers CONTENT "activate-noawait ldconfig\n")
file(CONFIGURE OUTPUT ${control}/shlibs CONTENT
"libKTLOxuGeom ${PROJECT_VERSION_MAJOR} ${library} (= ${PROJECT_VERSION})
libOrvexBase ${PROJECT_VERSION_MAJOR} ${library} (= ${PROJECT_VERSION})
")
orvex_package(runtime ${library} SECTION libs CONTROL ${control}/shlibs ${control}/triggers DESCRIPTION
"product utilities of a finite-element pre- and post-processor
Values and objects of the scripting language, annotations, attributes,
geometry within tolerances, the directional distance of two sets of
triangles, colours, quaternions, mementos and progress reporting.")
orvex_package(development libktloxugeom-dev SECTION libdevel NEEDS runtime DESCRIPTION
"headers and link names of the Orvex product utilities
The C++20 headers, and what find_package(KTLOxuGeom) and pkg-config need.")
if(TARGET orvex)
    orvex_package(tools orvex-tools SECTION science NEEDS runtime RECOMMENDS fonts-liberation DESCRIPTION
"contact travel of parts, and what else Orvex answers from a command line
The command orvex tells how far a part can move before it touches another,
and what a mesh, a memento or a colour is made of, with pictures and JSON.")
endif()
if(TARGET orvex_python)
    string(REGEX MATCH "^([0-9]+)\\.([0-9]+)$" release "${ORVEX_PYTHON_RELEASE}")
    math(EXPR next "${CMAKE_MATCH_2} + 1")
    set(scripts ${PROJECT_SOURCE_DIR}/cmake/python3-orvex)
    orvex_package(python_debian python3-orvex SECTION python NEEDS runtime RECOMMENDS fonts-liberation
        CONTROL ${scripts}/postinst ${scripts}/prerm
        DEPENDS "python3 (>= ${release}~), python3 (<< ${CMAKE_MATCH_1}.${next})"
        DESCRIPTION
"scripting language of Orvex in Python
The module orvex: values, commands, objects with paths, annotations with
pictures, mementos, and the contact travel of meshes in any buffer.")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CONTACT "${ORVEX_MAINTAINER}")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Where those are that come from here; NEEDS says which package.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
