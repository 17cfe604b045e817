# tagwright_floor(name BELOW floors... QT modules... LIBRARIES targets...)
#
# One floor of the house: the folder src/<name> as the static library tagwright_<name>. What a
# floor may include stands in tools/check_structure.py, which runs with the tests.
function(tagwright_floor name)
    cmake_parse_arguments(PARSE_ARGV 1 floor "" "" "BELOW;QT;LIBRARIES")
    file(GLOB sources CONFIGURE_DEPENDS
        ${CMAKE_SOURCE_DIR}/src/${name}/*.cpp ${CMAKE_SOURCE_DIR}/src/${name}/*.h)
    add_library(tagwright_${name} STATIC ${sources})
    set_target_properties(tagwright_${name} PROPERTIES LINKER_LANGUAGE CXX)
    # CMake 3.25 overlooks the signals of headers that are new in a folder built before.
    if(NOT "${sources}" STREQUAL "${sources_of_${name}}")
        file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/tagwright_${name}_autogen/timestamp)
        set(sources_of_${name} "${sources}" CACHE INTERNAL "")
    endif()
    target_include_directories(tagwright_${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    list(TRANSFORM floor_BELOW PREPEND tagwright_)
    list(TRANSFORM floor_QT PREPEND Qt6::)
    target_link_libraries(tagwright_${name}
        PUBLIC ${floor_BELOW} ${floor_QT}
        PRIVATE tagwright_strictness ${floor_LIBRARIES})
    if(name STREQUAL base)
        tagwright_precompiles(tagwright_base
            <QByteArray> <QDir> <QFile> <QHash> <QList> <QMap> <QObject> <QString> <QStringList>
            <QUrl> <QVariant> <algorithm> <chrono> <functional> <memory> <optional> <vector>)
    elseif(name STREQUAL gui)
        tagwright_precompiles(tagwright_gui <QtWidgets>)
    else()
        tagwright_shares_precompiled(tagwright_${name} tagwright_base)
    endif()
endfunction()
