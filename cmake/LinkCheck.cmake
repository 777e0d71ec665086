# Every static library must link what it uses. A missing dependency often goes unnoticed,
# because the executables that use the library happen to name the missing one later on
# their link line (and whether they do differs between generators and build types). So each
# library also gets a small executable that links all of its objects ("whole archive") with
# only the dependencies the library declares: a missing one is an undefined reference there,
# in every build.
option(ESTIMATE_LINK_CHECK "Link every static library on its own to check its dependencies" ON)

function(est_static_libraries_in dir out)
    get_property(targets DIRECTORY ${dir} PROPERTY BUILDSYSTEM_TARGETS)
    set(found)
    foreach(t IN LISTS targets)
        get_target_property(type ${t} TYPE)
        get_target_property(imported ${t} IMPORTED)
        if(type STREQUAL "STATIC_LIBRARY" AND NOT imported)
            list(APPEND found ${t})
        endif()
    endforeach()
    get_property(subdirs DIRECTORY ${dir} PROPERTY SUBDIRECTORIES)
    foreach(sub IN LISTS subdirs)
        est_static_libraries_in(${sub} more)
        list(APPEND found ${more})
    endforeach()
    set(${out} ${found} PARENT_SCOPE)
endfunction()

function(est_add_link_checks)
    if(NOT ESTIMATE_LINK_CHECK)
        return()
    endif()
    est_static_libraries_in(${PROJECT_SOURCE_DIR} libraries)
    # One compiled main for all of them.
    add_library(link_check_main OBJECT ${PROJECT_SOURCE_DIR}/cmake/link_check_main.cpp)
    set_target_properties(link_check_main PROPERTIES AUTOMOC OFF AUTORCC OFF AUTOUIC OFF)
    foreach(lib IN LISTS libraries)
        # Qt's resource objects come as libraries of their own; they use nothing.
        if(lib MATCHES "_resources_[0-9]+$")
            continue()
        endif()
        set(check link_check_${lib})
        add_executable(${check} $<TARGET_OBJECTS:link_check_main>)
        set_target_properties(${check} PROPERTIES AUTOMOC OFF AUTORCC OFF AUTOUIC OFF
            RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/link_check)
        target_link_libraries(${check} PRIVATE "$<LINK_LIBRARY:WHOLE_ARCHIVE,${lib}>")
    endforeach()
endfunction()
