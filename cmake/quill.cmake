# quill_module(LINKS ...)   the library of this folder of src/, from all its sources.
# quill_program(NAME LINKS ...)   the program of this folder, in <build>/app/ with all its data beside it.
# quill_test(LINKS ... [LABEL ...])   the tests of this folder of tests/, one program, each test found by ctest.
#
# Links name folders of src/ ("platform/core") or imported targets ("Qt6::Gui").

function(quill_folder out base)
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${CMAKE_SOURCE_DIR}/${base}
               OUTPUT_VARIABLE folder)
    set(${out} ${folder} PARENT_SCOPE)
endfunction()

function(quill_targets out)
    set(targets "")
    foreach(link IN LISTS ARGN)
        if(NOT link MATCHES "::")
            string(REPLACE "/" "-" link ${link})
        endif()
        list(APPEND targets ${link})
    endforeach()
    set(${out} ${targets} PARENT_SCOPE)
endfunction()

# The targets that this folder of src/ links, each checked against the table of allowed dependencies.
macro(quill_parse_links)
    cmake_parse_arguments(arg "" "" "LINKS" ${ARGN})
    quill_folder(folder src)
    foreach(link IN LISTS arg_LINKS)
        quill_check_dependency(${folder} ${link})
    endforeach()
    quill_targets(links ${arg_LINKS})
endmacro()

function(quill_module)
    quill_parse_links(${ARGN})
    quill_targets(name ${folder})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${links})
endfunction()

# Builds a file of resources/ into every program that links this folder's library; the library itself would be
# dropped by the linker where nothing refers to it.
function(quill_resources file)
    quill_folder(folder src)
    quill_targets(name ${folder})
    target_sources(${name} INTERFACE ${CMAKE_SOURCE_DIR}/resources/${file})
endfunction()

function(quill_program name)
    quill_parse_links(${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE ${links})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/app)
    quill_data(${name}-data app)
    add_dependencies(${name} ${name}-data)
endfunction()

# The suite's data in a folder of the build tree, brought up to date by the target name.
function(quill_data name folder)
    file(GLOB_RECURSE data CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/data/*)
    set(stamp ${CMAKE_BINARY_DIR}/${name}.stamp)
    add_custom_command(OUTPUT ${stamp}
        COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/data ${CMAKE_BINARY_DIR}/${folder}
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS ${data} COMMENT "Data in ${folder}")
    add_custom_target(${name} ALL DEPENDS ${stamp})
endfunction()

function(quill_test)
    cmake_parse_arguments(arg "" "LABEL" "LINKS" ${ARGN})
    quill_folder(folder tests)
    quill_targets(links ${arg_LINKS})
    string(REPLACE "/" "-" name "test/${folder}")
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE test-support ${links})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests/bin)
    add_dependencies(${name} test-data)
    target_compile_definitions(${name} PRIVATE QUILL_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data")
    set(properties TIMEOUT 120)
    if(arg_LABEL)
        list(APPEND properties LABELS ${arg_LABEL})
    endif()
    gtest_discover_tests(${name} TEST_PREFIX "${folder}/" NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60 PROPERTIES ${properties})
endfunction()
