# The standard headers that nearly every file reads, compiled once. clang-tidy goes without, so that a
# file that forgets its own is noticed; and so do the Windows programs, because out of a compiled header
# GCC warns of what is inside mingw's own.
set(TAVIRO_COMPILED_HEADERS ON)
if(TAVIRO_TIDY OR WIN32)
    set(TAVIRO_COMPILED_HEADERS OFF)
endif()
if(TAVIRO_COMPILED_HEADERS)
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/headers.cpp CONTENT "")
    add_library(taviro_headers OBJECT ${CMAKE_BINARY_DIR}/headers.cpp)
    target_link_libraries(taviro_headers PRIVATE taviro_flags)
    target_precompile_headers(taviro_headers PRIVATE
        <algorithm> <array> <functional> <map> <memory> <string> <string_view> <variant> <vector>)
endif()

# taviro_module(NAME SOURCE...): the object library of one folder. A folder of headers alone needs
# no library. Every program links the objects of all modules and one platform.
function(taviro_module name)
    if(NOT ARGN)
        return()
    endif()
    add_library(${name} OBJECT ${ARGN})
    target_link_libraries(${name} PRIVATE taviro_flags)
    if(TAVIRO_TIDY)
        set_target_properties(${name} PROPERTIES CXX_CLANG_TIDY ${TAVIRO_CLANG_TIDY})
    elseif(TAVIRO_COMPILED_HEADERS)
        target_precompile_headers(${name} REUSE_FROM taviro_headers)
    endif()
endfunction()

# taviro_sources(NAME [FOLDER]): the same with every source file of the folder.
function(taviro_sources name)
    set(folder ${name})
    if(ARGC GREATER 1)
        set(folder ${ARGV1})
    endif()
    file(GLOB sources CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
    taviro_module(${name} ${sources})
endfunction()

# The objects of every portable module.
function(taviro_link_program target)
    target_link_libraries(${target} PRIVATE taviro_flags)
    foreach(module com vocabulary forms platform settings input maps feedback actions dialogs core automation)
        if(TARGET ${module})
            target_link_libraries(${target} PRIVATE ${module})
        endif()
    endforeach()
    if(TAVIRO_TIDY)
        set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY ${TAVIRO_CLANG_TIDY})
    endif()
endfunction()

# A program on the headless desktop.
function(taviro_link_headless target)
    taviro_link_program(${target})
    target_link_libraries(${target} PRIVATE platform_headless)
endfunction()
