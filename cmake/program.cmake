# The program itself, and the complete program folder in <build>/taviro: what a user gets, nothing
# else.
taviro_sources(platform_win32 platform/win32)
target_link_libraries(platform_win32 INTERFACE winmm ole32 oleaut32 shell32 gdi32 user32 psapi uuid)

add_executable(taviro WIN32 main.cpp)
taviro_link_program(taviro)
target_link_libraries(taviro PRIVATE platform_win32)
target_link_options(taviro PRIVATE -municode $<$<CONFIG:Release>:-s>)

# Brought up to date with every build, stale files removed.
add_custom_target(program_folder ALL
    COMMAND ${CMAKE_COMMAND} -DFROM=${PROJECT_SOURCE_DIR} -DPROGRAM=$<TARGET_FILE:taviro>
            -DFOLDER=${CMAKE_BINARY_DIR}/taviro -P ${PROJECT_SOURCE_DIR}/cmake/program_folder.cmake
    VERBATIM)
add_dependencies(program_folder taviro)
