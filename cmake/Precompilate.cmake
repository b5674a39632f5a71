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
