# Every warning is an error, in every build.
add_compile_options(
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wformat=2
    -Wimplicit-fallthrough -Wextra-semi -Werror)
add_compile_definitions(QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
                        QT_NO_FOREACH QT_NO_KEYWORDS)
