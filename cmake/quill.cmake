# quill_module(LINKS ... [PRIVATE ...] [WITHOUT ...])   the library of this folder of src/, from all its sources.
#     What it links as PRIVATE its users do not see; the subfolders WITHOUT names are left out.
# quill_program(NAME LINKS ...)   the program of this folder, in <build>/app/ with all its data beside it.
# quill_test(LINKS ... [LABEL ...])   the tests of this folder of tests/, one program, each test found by ctest.
#
# Links name folders of src/ ("platform/core") or imported targets ("Qt6::Gui").
#
# A folder below that has no CMakeLists.txt of its own belongs to the module or the tests around it. Sources include
# each other by file name alone, wherever in a module they are.

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

# The targets that this folder of src/ links, each checked against the arrow table.
macro(quill_parse_links)
    cmake_parse_arguments(arg "" "" "LINKS;PRIVATE;WITHOUT" ${ARGN})
    quill_folder(folder src)
    foreach(link IN LISTS arg_LINKS arg_PRIVATE)
        quill_check_arrow(${folder} ${link})
    endforeach()
    quill_targets(links ${arg_LINKS})
    quill_targets(private_links ${arg_PRIVATE})
endmacro()

# The folder and those below it that belong to the same module.
function(quill_folders_of_module out folder)
    set(folders ${folder})
    file(GLOB entries CONFIGURE_DEPENDS LIST_DIRECTORIES true ${folder}/*)
    foreach(entry IN LISTS entries)
        if(IS_DIRECTORY ${entry} AND NOT EXISTS ${entry}/CMakeLists.txt)
            quill_folders_of_module(below ${entry})
            list(APPEND folders ${below})
        endif()
    endforeach()
    set(${out} ${folders} PARENT_SCOPE)
endfunction()

# The folders and sources of the module or the tests in the current folder, without the subfolders named.
macro(quill_find_sources)
    quill_folders_of_module(folders ${CMAKE_CURRENT_SOURCE_DIR})
    foreach(left IN ITEMS ${ARGN})
        list(FILTER folders EXCLUDE REGEX "^${CMAKE_CURRENT_SOURCE_DIR}/${left}(/|$)")
    endforeach()
    list(TRANSFORM folders APPEND "/*.cpp" OUTPUT_VARIABLE implementations)
    list(TRANSFORM folders APPEND "/*.h" OUTPUT_VARIABLE headers)
    file(GLOB sources CONFIGURE_DEPENDS ${implementations} ${headers})
endmacro()

function(quill_module)
    quill_parse_links(${ARGN})
    quill_targets(name ${folder})
    quill_find_sources(${arg_WITHOUT})
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${folders})
    target_link_libraries(${name} PUBLIC ${links} PRIVATE ${private_links})
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
    quill_find_sources()
    add_executable(${name} ${sources})
    target_include_directories(${name} PRIVATE ${folders})
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
