option(TAVIRO_TOGETHER "Compile the files of a folder as one, and the standard headers once" ON)

# taviro_compile_together(TARGET FILES): so many of its files as one source, 0 for all. Reading the same
# headers over and over is most of what compiling takes.
function(taviro_compile_together target files)
    set_target_properties(${target} PROPERTIES
        UNITY_BUILD ${TAVIRO_TOGETHER} UNITY_BUILD_BATCH_SIZE ${files})
endfunction()

# The headers that nearly every file reads, compiled once. clang-tidy reads no compiled headers.
set(taviro_standard_headers
    <algorithm> <array> <functional> <map> <memory> <string> <string_view> <variant> <vector>)

# taviro_compile_headers(NAME HEADER...): an object library to reuse the compiled headers of.
function(taviro_compile_headers name)
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "")
    add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/${name}.cpp)
    target_link_libraries(${name} PRIVATE taviro_flags)
    target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()
if(TAVIRO_TOGETHER AND NOT TAVIRO_TIDY)
    taviro_compile_headers(taviro_headers ${taviro_standard_headers})
    if(WIN32)
        taviro_compile_headers(taviro_windows_headers ${taviro_standard_headers} <windows.h>)
    endif()
endif()

# taviro_use_headers(TARGET): the compiled headers for its files. Out of them GCC warns of what is inside
# mingw's own wmemcpy; what is portable is checked for the same natively, and the rest goes without
# compiled headers rather than without the warnings.
function(taviro_use_headers target)
    if(TAVIRO_TIDY OR NOT TAVIRO_TOGETHER)
        return()
    elseif(NOT WIN32)
        target_precompile_headers(${target} REUSE_FROM taviro_headers)
    elseif(target MATCHES "^(platform|automation)_win32$")
        target_precompile_headers(${target} REUSE_FROM taviro_windows_headers)
    elseif(NOT target MATCHES "(_win32|^com)$")
        target_precompile_headers(${target} REUSE_FROM taviro_headers)
        target_compile_options(${target} PRIVATE
            -Wno-array-bounds -Wno-stringop-overread -Wno-stringop-overflow)
    endif()
endfunction()

# taviro_module(NAME SOURCE...): the object library of one folder. A folder of headers alone needs
# no library. Every program links the objects of all modules and one platform.
function(taviro_module name)
    if(NOT ARGN)
        return()
    endif()
    add_library(${name} OBJECT ${ARGN})
    target_link_libraries(${name} PRIVATE taviro_flags)
    taviro_compile_together(${name} 16)
    if(TAVIRO_TIDY)
        set_target_properties(${name} PROPERTIES CXX_CLANG_TIDY "${TAVIRO_CLANG_TIDY}")
    endif()
    taviro_use_headers(${name})
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
        set_target_properties(${target} PROPERTIES CXX_CLANG_TIDY "${TAVIRO_CLANG_TIDY}")
    endif()
endfunction()

# A program on the headless desktop.
function(taviro_link_headless target)
    taviro_link_program(${target})
    target_link_libraries(${target} PRIVATE platform_headless)
endfunction()
