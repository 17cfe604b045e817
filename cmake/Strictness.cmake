# How every target of ours is compiled: warnings are errors, and Qt's implicit conversions are off.
add_library(tagwright_strictness INTERFACE)
target_compile_options(tagwright_strictness INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    -Wold-style-cast -Woverloaded-virtual -Wnon-virtual-dtor -Werror)
target_compile_definitions(tagwright_strictness INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS QT_NO_FOREACH
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(TAGWRIGHT_SANITIZE OR TAGWRIGHT_FUZZ)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(TAGWRIGHT_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# g++ 12 warns of allocations inside Qt's QHash that it makes up when it optimizes while linking.
if(CMAKE_INTERPROCEDURAL_OPTIMIZATION AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_link_options(-Wno-alloc-size-larger-than)
endif()
