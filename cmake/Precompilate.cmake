# Headers that are read once for many files: only those of libraries, which do not change from one build to the next.

set(PRECOMPILATE_STD <algorithm> <array> <bit> <chrono> <expected> <filesystem> <functional> <map> <memory> <optional>
    <set> <span> <string> <string_view> <tuple> <utility> <variant> <vector> <fmt/core.h>)
set(PRECOMPILATE_PROVE ${PRECOMPILATE_STD} <fstream> <iostream> <numeric> <random> <sstream> <gmock/gmock.h>
    <gtest/gtest.h>)

set(PRECOMPILATE_QT <QApplication> <QCheckBox> <QComboBox> <QFile> <QFrame> <QGridLayout> <QHBoxLayout> <QHeaderView>
    <QKeyEvent> <QLabel> <QLineEdit> <QPainter> <QPushButton> <QScrollArea> <QSettings> <QStackedWidget> <QString>
    <QTableView> <QTimer> <QVBoxLayout> <QWidget>)

# precompila(TARGET GROUP HEADERS...): TARGET begins with these headers. Targets that are compiled alike share those
# of their GROUP, which the first of them makes.
function(precompila target gruppo)
    get_property(capofila GLOBAL PROPERTY PRECOMPILATE_${gruppo})
    if(capofila)
        target_precompile_headers(${target} REUSE_FROM ${capofila})
    else()
        target_precompile_headers(${target} PRIVATE ${ARGN})
        set_property(GLOBAL PROPERTY PRECOMPILATE_${gruppo} ${target})
    endif()
endfunction()

# unisci(TARGET): compiles the files of each folder together, eight a unit, so that what they share is read and generated
# once. They then share their unnamed namespaces as well: a name stands for one thing in a folder.
function(unisci target)
    if(NOT SORTIMETRA_UNITY)
        return()
    endif()
    get_target_property(file ${target} SOURCES)
    get_target_property(qui ${target} SOURCE_DIR)
    list(FILTER file INCLUDE REGEX "[.]cpp$")
    foreach(sorgente ${file})
        cmake_path(ABSOLUTE_PATH sorgente BASE_DIRECTORY ${qui} NORMALIZE)
        cmake_path(GET sorgente PARENT_PATH cartella)
        cmake_path(GET cartella FILENAME nome)
        if(NOT DEFINED visti_${nome})
            set(visti_${nome} 0)
        endif()
        math(EXPR unita "${visti_${nome}} / 8")
        math(EXPR visti_${nome} "${visti_${nome}} + 1")
        set_source_files_properties(${sorgente} TARGET_DIRECTORY ${target} PROPERTIES UNITY_GROUP ${nome}_${unita})
    endforeach()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    # GCC takes a source that is included for a header, whose types many files would see.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endfunction()
