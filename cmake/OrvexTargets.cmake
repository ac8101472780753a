# How this project makes its targets: one object library a module, all of them in one shared library.

set(ORVEX_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/KTLOxuGeom)
set_property(GLOBAL PROPERTY ORVEX_MODULES "")

# Warnings and arithmetic of our own targets; whether a warning is an error is the preset's choice.
# Contraction to fused multiply-add is off: results must not depend on the compiler's mood.
function(orvex_options target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -ffp-contract=off)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        # g++ 12 sees overlapping copies in "text" + std::string at -O3 where there are none (GCC bug 105651).
        target_compile_options(${target} PRIVATE -Wno-restrict)
    endif()
    target_compile_features(${target} PUBLIC cxx_std_20)
endfunction()

# What a library or program exports: the visibility of its classes, less what the linker map takes away.
function(orvex_exports target map)
    target_link_options(${target} PRIVATE LINKER:--version-script=${PROJECT_SOURCE_DIR}/cmake/${map})
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/${map})
endfunction()

# Finds the sources of the classes listed; a class without a source file is a header alone.
function(orvex_sources result folder)
    set(sources "")
    foreach(class IN LISTS ARGN)
        if(EXISTS ${folder}/${class}.cpp)
            list(APPEND sources ${folder}/${class}.cpp)
        endif()
    endforeach()
    if(NOT sources)
        file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp "")
        set(sources ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp)
    endif()
    set(${result} ${sources} PARENT_SCOPE)
endfunction()

# orvex_base(CLASSES ...): libOrvexBase.so from one folder a component, the prefix before the underscore.
function(orvex_base)
    cmake_parse_arguments(ARG "" "" "CLASSES" ${ARGN})
    set(folders ${CMAKE_CURRENT_SOURCE_DIR})
    set(classes KTLBas KTLBasException)
    foreach(class IN LISTS ARG_CLASSES)
        string(REGEX REPLACE "_.*" "" prefix ${class})
        list(APPEND folders ${CMAKE_CURRENT_SOURCE_DIR}/${prefix})
        list(APPEND classes ${prefix}/${class})
    endforeach()
    list(REMOVE_DUPLICATES folders)
    orvex_sources(sources ${CMAKE_CURRENT_SOURCE_DIR} ${classes})
    add_library(OrvexBase SHARED ${sources})
    add_library(KTLOxuGeom::Base ALIAS OrvexBase)
    orvex_options(OrvexBase)
    orvex_exports(OrvexBase library.map)
    target_include_directories(OrvexBase PUBLIC "$<BUILD_INTERFACE:${folders}>"
                                                $<INSTALL_INTERFACE:${ORVEX_INCLUDE_DIR}>)
    set_target_properties(OrvexBase PROPERTIES EXPORT_NAME Base VERSION ${PROJECT_VERSION}
                                               SOVERSION ${PROJECT_VERSION_MAJOR})
    foreach(folder IN LISTS folders)
        file(GLOB headers CONFIGURE_DEPENDS ${folder}/*.h)
        install(FILES ${headers} DESTINATION ${ORVEX_INCLUDE_DIR} COMPONENT development)
    endforeach()
endfunction()

# orvex_module(<name> CLASSES ... LINKS ...): the object library KTLOxu<name>. Its include folders are
# its usage requirement, so that a module sees only the headers of the modules that it links.
function(orvex_module name)
    cmake_parse_arguments(ARG "" "" "CLASSES;LINKS" ${ARGN})
    set(here ${CMAKE_CURRENT_SOURCE_DIR})
    orvex_sources(sources ${here}/src KTLOxu${name} ${ARG_CLASSES})
    add_library(KTLOxu${name} OBJECT ${sources})
    orvex_options(KTLOxu${name})
    target_include_directories(KTLOxu${name} PUBLIC ${here}/PublicInterfaces
                                             PRIVATE ${here}/LocalInterfaces ${here}/src)
    target_link_libraries(KTLOxu${name} PUBLIC OrvexBase KTLOxuProtected)
    foreach(link IN LISTS ARG_LINKS)
        target_link_libraries(KTLOxu${name} PUBLIC KTLOxu${link})
    endforeach()
    set_property(GLOBAL APPEND PROPERTY ORVEX_MODULES ${name})
    file(GLOB headers CONFIGURE_DEPENDS ${here}/PublicInterfaces/*.h)
    install(FILES ${headers} DESTINATION ${ORVEX_INCLUDE_DIR} COMPONENT development)
endfunction()

# libKTLOxuGeom.so from all modules, and everything that find_package(KTLOxuGeom) needs.
function(orvex_library)
    get_property(modules GLOBAL PROPERTY ORVEX_MODULES)
    orvex_sources(sources ${CMAKE_CURRENT_SOURCE_DIR}) # of its own: none
    add_library(KTLOxuGeom SHARED ${sources})
    add_library(KTLOxuGeom::KTLOxuGeom ALIAS KTLOxuGeom)
    orvex_options(KTLOxuGeom)
    orvex_exports(KTLOxuGeom library.map)
    set_target_properties(KTLOxuGeom PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
                                                INSTALL_RPATH "$ORIGIN")
    target_link_libraries(KTLOxuGeom PUBLIC OrvexBase)
    target_include_directories(KTLOxuGeom PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/ProtectedInterfaces>
                                                 $<INSTALL_INTERFACE:${ORVEX_INCLUDE_DIR}>)
    foreach(module IN LISTS modules)
        target_link_libraries(KTLOxuGeom PRIVATE KTLOxu${module})
        target_include_directories(
            KTLOxuGeom PUBLIC $<BUILD_INTERFACE:$<TARGET_PROPERTY:KTLOxu${module},INTERFACE_INCLUDE_DIRECTORIES>>)
    endforeach()

    include(CMakePackageConfigHelpers)
    set(package ${CMAKE_INSTALL_LIBDIR}/cmake/KTLOxuGeom)
    install(TARGETS KTLOxuGeom OrvexBase EXPORT KTLOxuGeomTargets
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development)
    install(EXPORT KTLOxuGeomTargets NAMESPACE KTLOxuGeom:: DESTINATION ${package} COMPONENT development)
    configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/KTLOxuGeomConfig.cmake.in
                                  ${CMAKE_CURRENT_BINARY_DIR}/KTLOxuGeomConfig.cmake INSTALL_DESTINATION ${package})
    write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/KTLOxuGeomConfigVersion.cmake
                                     COMPATIBILITY SameMajorVersion)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KTLOxuGeomConfig.cmake
                  ${CMAKE_CURRENT_BINARY_DIR}/KTLOxuGeomConfigVersion.cmake
            DESTINATION ${package} COMPONENT development)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/KTLOxuGeom.pc.in ${CMAKE_CURRENT_BINARY_DIR}/KTLOxuGeom.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KTLOxuGeom.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
            COMPONENT development)

    set(documents ${CMAKE_INSTALL_DATADIR}/doc)
    install(FILES ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION ${documents}/libktloxugeom${PROJECT_VERSION_MAJOR}
            COMPONENT runtime)
    # The pages with all that they lead to, in the same places.
    set(documents ${documents}/libktloxugeom-dev)
    foreach(page IN ITEMS README.md CHANGELOG.md CONTRIBUTING.md benchmarks/README.md)
        cmake_path(GET page PARENT_PATH folder)
        install(FILES ${PROJECT_SOURCE_DIR}/${page} DESTINATION ${documents}/${folder} COMPONENT development)
    endforeach()
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/examples DESTINATION ${documents}
            COMPONENT development
            FILES_MATCHING REGEX "\\.(md|png|svg|cpp|py|stl|obj|off)$" PATTERN CMakeLists.txt)
endfunction()

# orvex_precompile(<target> ...): target_precompile_headers, except with ccache, which keeps nothing that was compiled
# with one.
function(orvex_precompile target)
    if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
        target_precompile_headers(${target} ${ARGN})
    endif()
endfunction()

# orvex_tests(<folder> MODULES ... [LINKS ...]): the program orvex_test_<folder> from every *_test.cpp there.
# It links the objects of the modules named, so that classes hidden in the shared library are tested too.
# ORVEX_TEST_FLAGS are options of the test programs alone, what they test is compiled without them. All programs share
# one precompiled header.
function(orvex_tests folder)
    cmake_parse_arguments(ARG "" "" "MODULES;LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*_test.cpp)
    if(NOT sources)
        return()
    endif()
    set(program orvex_test_${folder})
    add_executable(${program} ${sources})
    orvex_options(${program})
    target_compile_options(${program} PRIVATE ${ORVEX_TEST_FLAGS})
    target_link_libraries(${program} PRIVATE orvex_testing GTest::gmock_main OrvexBase KTLOxuProtected ${ARG_LINKS})
    foreach(module IN LISTS ARG_MODULES)
        target_link_libraries(${program} PRIVATE KTLOxu${module})
        target_include_directories(${program} PRIVATE ${PROJECT_SOURCE_DIR}/KTLOxu${module}.m/LocalInterfaces)
    endforeach()
    if(TARGET orvex_test_base AND NOT folder STREQUAL "base")
        orvex_precompile(${program} REUSE_FROM orvex_test_base)
    else()
        orvex_precompile(${program} PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
    endif()
    gtest_discover_tests(${program} TEST_PREFIX ${folder}. DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
                         PROPERTIES TIMEOUT 600 LABELS ${folder})
endfunction()
