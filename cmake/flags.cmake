set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG") # a small program is a quick start

# Warnings are errors everywhere but in foreign code (GoogleTest).
add_library(taviro_flags INTERFACE)
target_include_directories(taviro_flags INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(taviro_flags INTERFACE
    -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wcast-qual -Wformat=2 -Wnon-virtual-dtor -Woverloaded-virtual -Wmissing-declarations
    -Wswitch-enum -Wundef)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    target_compile_options(taviro_flags INTERFACE -Wreserved-identifier)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees overlapping copies in "literal" + std::to_string(n) where there are none.
    target_compile_options(taviro_flags INTERFACE -Wno-restrict)
endif()
if(TAVIRO_TOGETHER AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Of files compiled as one GCC takes all for headers, whose classes must not rest on nameless ones.
    target_compile_options(taviro_flags INTERFACE -Wno-subobject-linkage)
endif()
if(TAVIRO_SANITIZE)
    set(CMAKE_CXX_FLAGS_DEBUG "-g1") # lines for the stack traces, which are all that is read of it
    add_compile_options(-fsanitize=${TAVIRO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
    add_link_options(-fsanitize=${TAVIRO_SANITIZE})
endif()
if(TAVIRO_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
    add_link_options(-fsanitize=address,undefined)
endif()
if(TAVIRO_TIDY)
    find_program(TAVIRO_CLANG_TIDY_PROGRAM clang-tidy REQUIRED)
    set(TAVIRO_CLANG_TIDY ${TAVIRO_CLANG_TIDY_PROGRAM})
    if(WIN32)
        # Read as the cross-compiler reads it. The system's messages carry pointers in numbers, its
        # headers name parameters as they like, and its interfaces' compiler declares what we define.
        list(APPEND TAVIRO_CLANG_TIDY
             "--checks=-performance-no-int-to-ptr,-bugprone-forward-declaration-namespace,-readability-inconsistent-declaration-parameter-name"
             --extra-arg=-Wno-unknown-warning-option --extra-arg=--target=${TAVIRO_PROCESSOR}-w64-mingw32)
        foreach(folder ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES})
            if(folder MATCHES "c\\+\\+")
                list(APPEND TAVIRO_CLANG_TIDY --extra-arg=-isystem${folder})
            endif()
        endforeach()
    endif()
endif()
if(WIN32)
    # One file that starts on any Windows: the compiler's run-time library is inside.
    add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
    add_compile_options(-ffunction-sections -fdata-sections)
    # Sections aligned as in memory are mapped from the file page by page instead of being read whole.
    add_link_options(-static -Wl,--gc-sections -Wl,--file-alignment,4096)
    # The same sources give the same bytes, whenever and wherever they are built.
    add_link_options(-Wl,--no-insert-timestamp)
endif()
