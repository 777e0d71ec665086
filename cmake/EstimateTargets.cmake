# est_library(name SOURCES ... LINKS ...): one static library per subsystem folder.
function(est_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_LINKS})
endfunction()

# est_test(name SOURCES ... LINKS ...): a GoogleTest executable registered with CTest,
# run offscreen with its own settings store so tests never touch the user's settings.
function(est_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE test_support GTest::gtest GTest::gmock ${ARG_LINKS})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;XDG_CONFIG_HOME=${CMAKE_BINARY_DIR}/test-config/${name};QT_LOGGING_RULES=qt.qpa.*=false"
        TIMEOUT 300)
endfunction()
