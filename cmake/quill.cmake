# quill_module(LINKS ...)   the library of this folder of src/, from all its sources.
# quill_program(NAME LINKS ...)   the program of this folder, in <build>/app/ with all its data beside it.
# quill_test(LINKS ...)     the tests of this folder of tests/, one program, each test found by ctest.
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

function(quill_module)
    cmake_parse_arguments(arg "" "" "LINKS" ${ARGN})
    quill_folder(folder src)
    foreach(link IN LISTS arg_LINKS)
        quill_check_arrow(${folder} ${link})
    endforeach()
    quill_targets(name ${folder})
    quill_targets(links ${arg_LINKS})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${links})
endfunction()

function(quill_program name)
    cmake_parse_arguments(arg "" "" "LINKS" ${ARGN})
    quill_folder(folder src)
    foreach(link IN LISTS arg_LINKS)
        quill_check_arrow(${folder} ${link})
    endforeach()
    quill_targets(links ${arg_LINKS})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE ${links})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/app)
    file(GLOB_RECURSE data CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/data/*)
    add_custom_target(${name}-data ALL
        COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/data ${CMAKE_BINARY_DIR}/app
        DEPENDS ${data} COMMENT "Data beside ${name}")
    add_dependencies(${name} ${name}-data)
endfunction()

function(quill_test)
    cmake_parse_arguments(arg "" "" "LINKS" ${ARGN})
    quill_folder(folder tests)
    quill_targets(links ${arg_LINKS})
    string(REPLACE "/" "-" name "test/${folder}")
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE test-support ${links})
    target_compile_definitions(${name} PRIVATE QUILL_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data")
    gtest_discover_tests(${name} TEST_PREFIX "${folder}/" DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
endfunction()
