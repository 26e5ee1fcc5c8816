# quill_module(LINKS ... [PRIVATE ...] [WITHOUT ...])   the library of this folder of src/, from all its sources.
#     What it links as PRIVATE its users do not see; the subfolders WITHOUT names are left out.
# quill_interface(LINKS ...)   the same as a shared library: what the suite and a module loaded later have in common.
# quill_plugin(LINKS ...)   a module of this folder's sources, beside the program, which class Plugin loads on first use.
# quill_program(NAME LINKS ...)   the program of this folder, in <build>/app/ with all its data beside it.
# quill_test(LINKS ... [LABEL ...])   the tests of this folder of tests/, one program; ctest runs each tst_*.cpp of it
#                                     in a process of its own.
# quill_test_support(LINKS ...)   the library of this folder of tests/, for the tests of other folders.
#
# Links name folders of src/ ("platform/core") or imported targets ("Qt6::Gui").
#
# A folder below that has no CMakeLists.txt of its own belongs to the module or the tests around it. Sources include
# each other by file name alone, wherever in a module they are.

function(quill_folder out base)
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${CMAKE_SOURCE_DIR} OUTPUT_VARIABLE folder)
    string(REGEX REPLACE "^${base}/" "" folder ${folder})
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
    cmake_parse_arguments(arg "" "" "LINKS;PRIVATE;WITHOUT" ${ARGN})
    quill_folder(folder src)
    foreach(link IN LISTS arg_LINKS arg_PRIVATE)
        quill_check_dependency(${folder} ${link})
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

# Parsing Qt's headers is most of what compiling costs. platform/core and platform/forms precompile those that most
# sources include; a module takes them from platform/forms where it may show windows.
function(quill_share_precompiled name)
    if(name MATCHES "^platform-(core|forms)$")
        return()
    endif()
    set(from platform-core)
    foreach(link IN LISTS ARGN)
        if(TARGET ${link})
            get_target_property(shared ${link} PRECOMPILE_HEADERS_REUSE_FROM)
            if("platform-forms" IN_LIST shared OR link STREQUAL platform-forms)
                set(from platform-forms)
            endif()
        endif()
    endforeach()
    target_precompile_headers(${name} REUSE_FROM ${from})
endfunction()

function(quill_module)
    quill_parse_links(${ARGN})
    quill_targets(name ${folder})
    quill_find_sources(${arg_WITHOUT})
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${folders})
    target_link_libraries(${name} PUBLIC ${links} PRIVATE ${private_links})
    quill_share_precompiled(${name} ${links} ${private_links})
endfunction()

# What is loaded into a running program brings its static libraries' statics a second time, so it links shared ones.
function(quill_check_shared from)
    foreach(link IN LISTS ARGN)
        if(link MATCHES "::")
            continue()
        endif()
        quill_targets(target ${link})
        get_target_property(type ${target} TYPE)
        if(NOT type STREQUAL SHARED_LIBRARY)
            message(FATAL_ERROR "${from} may not link ${link}: its statics would come twice; only quill_interface() may.")
        endif()
    endforeach()
endfunction()

macro(quill_shared_library kind)
    quill_parse_links(${ARGN})
    quill_check_shared(${folder} ${arg_LINKS})
    quill_targets(name ${folder})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_library(${name} ${kind} ${sources})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${links})
    set(place app)
    if(folder MATCHES "^tests/")
        set(place tests/bin)
    endif()
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/${place})
endmacro()

function(quill_interface)
    quill_shared_library(SHARED ${ARGN})
endfunction()

function(quill_plugin)
    quill_shared_library(MODULE ${ARGN})
    set_target_properties(${name} PROPERTIES PREFIX "")
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

# The address book's database without contacts, which tools/make-database makes.
set(QUILL_DATABASE ${CMAKE_BINARY_DIR}/data/data97.mdb)
set(QUILL_DATABASE_SCHEMA ${CMAKE_SOURCE_DIR}/src/addressbook/database/schema.sql)

# The documents of the help, which tools/make-help makes from these sources.
set(QUILL_HELP ${CMAKE_BINARY_DIR}/data/help)
file(GLOB QUILL_HELP_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/data/help/*.md)
set(QUILL_HELP_DOCUMENTS ${QUILL_HELP_SOURCES})
list(TRANSFORM QUILL_HELP_DOCUMENTS REPLACE "^.*/(.*)\\.md$" "${QUILL_HELP}/\\1.rtf")

# The suite's data in a folder of the build tree, brought up to date by the target name. A database that is there is
# left alone: it may have contacts in it.
function(quill_data name folder)
    file(GLOB_RECURSE data CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/data/*)
    set(stamp ${CMAKE_BINARY_DIR}/${name}.stamp)
    set(to ${CMAKE_BINARY_DIR}/${folder})
    add_custom_command(OUTPUT ${stamp}
        COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/data ${to}
        COMMAND sh -c "rm -rf \"$0\"/*.md \"$0\"/pictures" ${to}/help # the sources of what follows
        COMMAND ${CMAKE_COMMAND} -E copy_directory ${QUILL_HELP} ${to}/help
        COMMAND chmod 600 ${to}/ftpprof.dat # it holds passwords
        COMMAND ${CMAKE_COMMAND} -E make_directory ${to}/upgrade # which the suite does not make
        COMMAND sh -c "test -e \"$1\" || install -m 600 \"$0\" \"$1\"" ${QUILL_DATABASE} ${to}/data97.mdb
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS ${data} ${QUILL_DATABASE} ${QUILL_HELP_DOCUMENTS} COMMENT "Data in ${folder}" VERBATIM)
    add_custom_target(${name} ALL DEPENDS ${stamp})
    add_dependencies(${name} address-database help-documents)
endfunction()

# The tests' sources share the precompiled headers of what every test program starts with.
function(quill_test_support)
    cmake_parse_arguments(arg "" "" "LINKS" ${ARGN})
    quill_folder(folder tests)
    quill_targets(links ${arg_LINKS})
    string(REPLACE "/" "-" name "test/${folder}")
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${links})
    target_precompile_headers(${name} REUSE_FROM test-program)
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
    target_precompile_headers(${name} REUSE_FROM test-program)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests/bin)
    add_dependencies(${name} test-data)
    target_compile_definitions(${name} PRIVATE QUILL_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data")
    quill_test_files(${name} ${folder} "${arg_LABEL}" ${sources})
endfunction()

# quill_test_files(PROGRAM FOLDER LABEL SOURCE...)   lets ctest run each tst_*.cpp among the sources of a test program.
function(quill_test_files program folder label)
    foreach(source IN LISTS ARGN)
        cmake_path(GET source FILENAME file)
        if(NOT file MATCHES "^tst_")
            continue()
        endif()
        cmake_path(GET source STEM test)
        add_test(NAME ${folder}/${test} COMMAND ${program} --file=${file} --gtest_brief=1)
        set_tests_properties(${folder}/${test} PROPERTIES TIMEOUT 600 SKIP_RETURN_CODE 77 LABELS "${label}")
    endforeach()
endfunction()
