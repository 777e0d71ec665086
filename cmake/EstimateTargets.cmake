# Precompiled headers: the Qt, standard library and test framework headers are parsed once per
# build for each kind of target and shared (REUSE_FROM), instead of once per source file.
# Logic libraries get Qt Core only and screens Qt Widgets, so a logic library still cannot use
# a widget by accident. -DESTIMATE_PCH=OFF builds without them (every include then has to stand
# on its own, which the fuzz build checks).
# GCC uses a precompiled header only where every macro defined when it was made is defined the
# same way, so each kind is made with the fewest libraries (QT_CORE_LIB ...) that all of its
# users link: no Qt Sql (common lacks it) and no Qt Test (QT_TESTCASE_BUILDDIR differs by folder).
option(ESTIMATE_PCH "Share precompiled Qt, standard library and GoogleTest headers" ON)

set(est_pch_logic_headers
    <QString> <QStringList> <QList> <QHash> <QSet> <QVariant> <QByteArray> <QDate> <QDateTime>
    <QDir> <QFile> <QFileInfo> <QSaveFile> <QRegularExpression>
    <algorithm> <array> <cmath> <cstdint> <functional> <limits> <memory> <optional> <string>
    <utility> <vector>)
set(est_pch_logic_links Qt6::Core)

set(est_pch_screens_headers ${est_pch_logic_headers}
    <QApplication> <QWidget> <QDialog> <QDialogButtonBox> <QLabel> <QPushButton> <QLineEdit>
    <QComboBox> <QCheckBox> <QRadioButton> <QButtonGroup> <QGroupBox> <QVBoxLayout> <QHBoxLayout>
    <QGridLayout> <QFormLayout> <QHeaderView> <QTableWidget> <QTableView> <QListWidget>
    <QKeyEvent> <QCloseEvent> <QSignalBlocker> <QPointer> <QTimer>)
set(est_pch_screens_links Qt6::Widgets)

set(est_pch_tests_headers ${est_pch_screens_headers}
    <gtest/gtest.h> <gmock/gmock.h> <QTemporaryDir> <QProcess> <QSettings>)
set(est_pch_tests_links Qt6::Widgets GTest::gtest GTest::gmock)

# est_use_pch(target logic|screens|tests): the target uses the shared headers of that kind.
# Each kind is compiled once, by a small target of its own with the same flags as its users.
function(est_use_pch target kind)
    if(NOT ESTIMATE_PCH)
        return()
    endif()
    set(owner est_pch_${kind})
    if(NOT TARGET ${owner})
        add_library(${owner} OBJECT ${PROJECT_SOURCE_DIR}/cmake/pch_owner.cpp)
        set_target_properties(${owner} PROPERTIES AUTOMOC OFF AUTORCC OFF AUTOUIC OFF)
        target_link_libraries(${owner} PRIVATE ${est_pch_${kind}_links})
        target_precompile_headers(${owner} PRIVATE ${est_pch_${kind}_headers})
    endif()
    target_precompile_headers(${target} REUSE_FROM ${owner})
endfunction()

# est_library(name SOURCES ... LINKS ...): one static library per subsystem folder; a library
# that links Qt Widgets is a screens library.
function(est_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_LINKS})
    if("Qt6::Widgets" IN_LIST ARG_LINKS)
        est_use_pch(${name} screens)
    else()
        est_use_pch(${name} logic)
    endif()
endfunction()

# est_test(name SOURCES ... LINKS ... [SHARDS n] [BOTH_BACKENDS]): the GoogleTest executable of one subsystem,
# registered with CTest, run offscreen with its own settings store so tests never touch the
# user's settings. With SHARDS, CTest runs it as n parts (GoogleTest sharding) that can run in
# parallel, each with a settings store of its own.
function(est_test name)
    cmake_parse_arguments(ARG "BOTH_BACKENDS" "SHARDS" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE test_support GTest::gtest GTest::gmock ${ARG_LINKS})
    est_use_pch(${name} tests)
    if(NOT ARG_SHARDS)
        set(ARG_SHARDS 1)
    endif()
    math(EXPR last "${ARG_SHARDS} - 1")
    foreach(shard RANGE ${last})
        set(test ${name})
        set(env "QT_QPA_PLATFORM=offscreen" "QT_LOGGING_RULES=qt.qpa.*=false")
        if(ARG_SHARDS GREATER 1)
            set(test ${name}_${shard})
            list(APPEND env GTEST_TOTAL_SHARDS=${ARG_SHARDS} GTEST_SHARD_INDEX=${shard})
        endif()
        list(APPEND env "XDG_CONFIG_HOME=${CMAKE_BINARY_DIR}/test-config/${test}")
        add_test(NAME ${test} COMMAND ${name})
        set_tests_properties(${test} PROPERTIES ENVIRONMENT "${env}" TIMEOUT 300)
    endforeach()
    # Once more with the program's shared fixtures on the test server (test::backendOfRun()).
    if(ARG_BOTH_BACKENDS)
        add_test(NAME ${name}_server COMMAND ${name})
        set_tests_properties(${name}_server PROPERTIES TIMEOUT 300 ENVIRONMENT
            "QT_QPA_PLATFORM=offscreen;QT_LOGGING_RULES=qt.qpa.*=false;ESTIMATE_TEST_BACKEND=server;XDG_CONFIG_HOME=${CMAKE_BINARY_DIR}/test-config/${name}_server")
    endif()
endfunction()

# est_bench(name SOURCES ... LINKS ...): a Google Benchmark executable, not run by CTest and
# not built by default: `cmake --build build --target bench` builds them all.
function(est_bench name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} EXCLUDE_FROM_ALL ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE bench_support ${ARG_LINKS})
    add_dependencies(bench ${name})
endfunction()

# est_fuzzer(name SOURCES ... LINKS ... [DICT file]): a libFuzzer target (clang,
# -DESTIMATE_BUILD_FUZZ=ON). tools/fuzz builds every one (target `fuzzers`) into <build>/fuzz/
# and runs it on its seeds in fuzz/corpus/<name>; fuzz/targets.txt in the build lists them.
function(est_fuzzer name)
    cmake_parse_arguments(ARG "" "DICT" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer-no-link)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_libraries(${name} PRIVATE ${ARG_LINKS})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/fuzz)
    if(NOT TARGET fuzzers)
        add_custom_target(fuzzers)
    endif()
    add_dependencies(fuzzers ${name})
    set_property(GLOBAL APPEND PROPERTY EST_FUZZERS "${name} ${ARG_DICT}")
endfunction()

# Writes <build>/fuzz/targets.txt: one fuzz target a line, with its dictionary if it has one.
function(est_write_fuzzer_list)
    get_property(fuzzers GLOBAL PROPERTY EST_FUZZERS)
    list(JOIN fuzzers "\n" text)
    file(WRITE ${CMAKE_BINARY_DIR}/fuzz/targets.txt "${text}\n")
endfunction()
