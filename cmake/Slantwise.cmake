# Targets of this project: one static library a folder, one test program a folder.
# A library links only what stands below it, so an include that breaks the layering does not build.

add_library(slantwise_options INTERFACE)
target_compile_features(slantwise_options INTERFACE cxx_std_20)
target_compile_options(slantwise_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
    -fvisibility=hidden -fvisibility-inlines-hidden)
if(SLANTWISE_WARNINGS_ARE_ERRORS AND NOT SLANTWISE_SANITIZERS)
    # A sanitizer's instrumentation makes GCC 12 warn of things that are not there; the plain builds hold the line.
    target_compile_options(slantwise_options INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # This compiler warns about overlapping copies inside its own std::string whenever a literal is put before a string.
    target_compile_options(slantwise_options INTERFACE -Wno-restrict)
endif()

set(SLANTWISE_LAYER_ROOT ${PROJECT_BINARY_DIR}/layers)

# Fails unless all of these are targets already: a name that is misspelt, or that of a library which stands above, would be
# taken for a library of the system's. Names with colons are checked by CMake itself; a library of the system's has its path.
function(slantwise_require_targets name)
    foreach(link IN LISTS ARGN)
        if(NOT TARGET ${link} AND NOT link MATCHES "::|^/")
            message(FATAL_ERROR "${name} links \"${link}\", which is no target, or one that stands above it")
        endif()
    endforeach()
endfunction()

# Makes `view` show what is in `folder`, but for the folders in it that are libraries of their own.
function(slantwise_link_headers folder view)
    if(IS_SYMLINK ${view})
        file(REMOVE ${view})
    endif()
    file(MAKE_DIRECTORY ${view})
    file(GLOB entries CONFIGURE_DEPENDS RELATIVE ${folder} ${folder}/*)
    foreach(entry IN LISTS entries)
        if(NOT EXISTS ${folder}/${entry}/CMakeLists.txt AND NOT EXISTS ${view}/${entry})
            file(CREATE_LINK ${folder}/${entry} ${view}/${entry} SYMBOLIC)
        endif()
    endforeach()
endfunction()

# slantwise_library(name [SOURCES file...] [LINKS target...] [SYSTEM_LINKS target...])
# Headers are reached as "folder/Header.h" through a directory that holds links to this folder alone, so that a folder
# sees exactly the folders it links. Without sources it is one of headers only.
function(slantwise_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;SYSTEM_LINKS" ${ARGN})
    file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    slantwise_require_targets(${name} ${ARG_LINKS})
    set_property(GLOBAL APPEND PROPERTY SLANTWISE_TARGETS ${name})
    set(view ${SLANTWISE_LAYER_ROOT}/${name})
    slantwise_link_headers(${CMAKE_CURRENT_SOURCE_DIR} ${view}/${folder})
    if(NOT ARG_SOURCES)
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE ${view} ${PROJECT_BINARY_DIR}/generated)
        target_link_libraries(${name} INTERFACE ${ARG_LINKS})
        return()
    endif()
    add_library(${name} STATIC ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_include_directories(${name} PUBLIC ${view} ${PROJECT_BINARY_DIR}/generated)
    target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE slantwise_options ${ARG_SYSTEM_LINKS})
endfunction()

# slantwise_program(name SOURCES file... LINKS target...)
function(slantwise_program name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    slantwise_require_targets(${name} ${ARG_LINKS})
    set_property(GLOBAL APPEND PROPERTY SLANTWISE_TARGETS ${name})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LINKS} slantwise_options)
endfunction()

# From this many sources on a test program compiles the headers that most of them begin with once for all of them.
set(SLANTWISE_PRECOMPILE_FROM 6)

# slantwise_quick_to_compile(name [header...]): for programs of the tests, most of whose time is in the compiler. What
# ships is compiled in the libraries, with their own flags.
function(slantwise_quick_to_compile name)
    target_compile_options(${name} PRIVATE $<$<NOT:$<CONFIG:Debug>>:-Og>)
    get_target_property(sources ${name} SOURCES)
    list(LENGTH sources count)
    if(count LESS SLANTWISE_PRECOMPILE_FROM OR NOT ARGN)
        return()
    endif()
    target_precompile_headers(${name} PRIVATE ${ARGN})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # Without the first ccache could not see what is precompiled. With precompiled headers GCC 12 dies in the pass that
        # the second leaves out, and at this level it warns of copies inside std::string that are not there.
        target_compile_options(${name} PRIVATE -fpch-preprocess -fno-ipa-cp -Wno-array-bounds -Wno-stringop-overflow)
    endif()
endfunction()

# slantwise_own_folders(name): a program that opens editors and is not the user's own, which neither finds nor leaves
# anything in the user's folders.
function(slantwise_own_folders name)
    if(NOT TARGET slantwise_own_folders)
        add_library(slantwise_own_folders OBJECT ${PROJECT_SOURCE_DIR}/tests/support/OwnFolders.cpp)
        target_include_directories(slantwise_own_folders PRIVATE ${PROJECT_SOURCE_DIR}/tests)
        target_link_libraries(slantwise_own_folders PRIVATE slantwise_options)
    endif()
    target_link_libraries(${name} PRIVATE slantwise_own_folders)
endfunction()

# slantwise_fresh_folders(name): the same for a GoogleTest program, anew for each of its cases.
function(slantwise_fresh_folders name)
    if(NOT TARGET slantwise_fresh_folders)
        add_library(slantwise_fresh_folders OBJECT ${PROJECT_SOURCE_DIR}/tests/support/FreshFolders.cpp)
        target_link_libraries(slantwise_fresh_folders PRIVATE GTest::gtest slantwise_options)
    endif()
    slantwise_own_folders(${name})
    target_link_libraries(${name} PRIVATE slantwise_fresh_folders)
endfunction()

# slantwise_tests(name SOURCES file... LINKS target... [PRECOMPILE header...]): a GoogleTest program whose cases ctest
# lists one by one, with the program's name as their label. Under a sanitizer a process takes longer to begin and end than
# most cases take: there ctest runs the program twice, with half of the cases each, one for each of two processors.
function(slantwise_tests name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;PRECOMPILE" ${ARGN})
    slantwise_program(${name} SOURCES ${ARG_SOURCES} LINKS ${ARG_LINKS} GTest::gmock GTest::gtest GTest::gtest_main)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    slantwise_fresh_folders(${name})
    slantwise_quick_to_compile(${name} <gmock/gmock.h> ${ARG_PRECOMPILE})
    if(NOT SLANTWISE_SANITIZERS)
        gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120 LABELS ${name})
        return()
    endif()
    foreach(half 0 1)
        add_test(NAME ${name}.${half} COMMAND ${name})
        set_tests_properties(${name}.${half} PROPERTIES TIMEOUT 1200 LABELS ${name}
            ENVIRONMENT "GTEST_TOTAL_SHARDS=2;GTEST_SHARD_INDEX=${half}")
    endforeach()
endfunction()
