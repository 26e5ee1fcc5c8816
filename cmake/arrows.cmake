# The drawing of the house: what a folder of src/ may link. quill_module() refuses every other link.
#
# "*" stands for any run of characters. A folder inherits nothing from the one above it.

set(QUILL_ARROWS)

function(quill_arrow from)
    cmake_parse_arguments(arg "" "" "TO" ${ARGN})
    list(TRANSFORM arg_TO PREPEND "${from}>")
    set(QUILL_ARROWS ${QUILL_ARROWS} ${arg_TO} PARENT_SCOPE)
endfunction()

quill_arrow(platform/core         TO Qt6::Core ICU::uc)
quill_arrow(platform/system       TO platform/core Qt6::Core)
quill_arrow(platform/richtext/rtf TO platform/core Qt6::Gui)
quill_arrow(platform/forms        TO platform/core Qt6::Widgets Qt6::PrintSupport)
quill_arrow(platform/controls     TO platform/forms)
quill_arrow(platform/richtext     TO platform/forms platform/richtext/rtf Qt6::GuiPrivate)
quill_arrow(platform/look         TO platform/forms platform/controls Qt6::DBus)
quill_arrow(frame                 TO platform/forms platform/controls)
quill_arrow(services              TO frame platform/*)
quill_arrow(word                  TO frame services platform/*)
quill_arrow(calculator            TO frame platform/*)
quill_arrow(shell                 TO frame services platform/* word Qt6::Svg)
quill_arrow(app                   TO *)
quill_arrow(app/windows           TO *)

function(quill_check_arrow from to)
    foreach(arrow IN LISTS QUILL_ARROWS)
        string(REPLACE ">" ";" ends "${arrow}")
        list(GET ends 0 source)
        list(GET ends 1 target)
        string(REPLACE "*" ".*" target "${target}")
        if(source STREQUAL from AND to MATCHES "^${target}$")
            return()
        endif()
    endforeach()
    message(FATAL_ERROR "${from} may not link ${to}: cmake/arrows.cmake has no such arrow.")
endfunction()
