# The allowed dependencies: what a folder of src/ may link. quill_module() and its kin refuse every other link.
#
# "*" matches any run of characters. A folder inherits nothing from the one above it.

set(QUILL_DEPENDENCIES)

function(quill_allow from)
    cmake_parse_arguments(arg "" "" "TO" ${ARGN})
    list(TRANSFORM arg_TO PREPEND "${from}>")
    set(QUILL_DEPENDENCIES ${QUILL_DEPENDENCIES} ${arg_TO} PARENT_SCOPE)
endfunction()

quill_allow(platform/core         TO Qt6::Core ICU::uc)
quill_allow(platform/system       TO platform/core Qt6::Core)
quill_allow(platform/richtext/rtf TO platform/core Qt6::Gui)
quill_allow(platform/forms        TO platform/core Qt6::Widgets Qt6::PrintSupport)
quill_allow(platform/controls     TO platform/forms)
quill_allow(platform/richtext     TO platform/forms platform/richtext/rtf Qt6::GuiPrivate)
quill_allow(platform/look         TO platform/forms platform/controls Qt6::DBus)
quill_allow(frame                 TO platform/forms platform/controls)
quill_allow(services              TO frame platform/*)
quill_allow(word                  TO frame services platform/*)
quill_allow(calculator            TO frame platform/*)
quill_allow(shell                 TO frame services platform/* word Qt6::Svg)
quill_allow(app                   TO *)
quill_allow(app/windows           TO *)

function(quill_check_dependency from to)
    foreach(dependency IN LISTS QUILL_DEPENDENCIES)
        string(REPLACE ">" ";" ends "${dependency}")
        list(GET ends 0 source)
        list(GET ends 1 target)
        string(REPLACE "*" ".*" target "${target}")
        if(source STREQUAL from AND to MATCHES "^${target}$")
            return()
        endif()
    endforeach()
    message(FATAL_ERROR "${from} may not link ${to}: cmake/dependencies.cmake does not allow it.")
endfunction()
