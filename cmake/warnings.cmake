# Every warning is an error, in every build.
add_compile_options(
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wformat=2
    -Wimplicit-fallthrough -Wextra-semi -Werror)
add_compile_definitions(QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
                        QT_NO_FOREACH QT_NO_KEYWORDS)
if(CMAKE_UNITY_BUILD)
    # A class of a source file may derive from one of its unnamed namespace, which looks like a header's there.
    add_compile_options(-Wno-subobject-linkage)
endif()
