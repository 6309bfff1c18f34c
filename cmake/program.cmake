# The program itself, and the complete program folder in <build>/taviro: what a user gets, nothing
# else.
taviro_sources(platform_win32 platform/win32)
target_link_libraries(platform_win32 INTERFACE winmm ole32 oleaut32 shell32 gdi32 user32 psapi uuid)

# The COM face of the automation object, and the type library as a resource.
taviro_sources(automation_win32 automation/win32)
taviro_use_gui_interface(automation_win32)
set_source_files_properties(${PROJECT_SOURCE_DIR}/automation/win32/gui.rc PROPERTIES
    INCLUDE_DIRECTORIES ${TAVIRO_GUI_FOLDER} OBJECT_DEPENDS ${TAVIRO_GUI_FOLDER}/gui.tlb)

add_executable(taviro WIN32 main.cpp automation/win32/gui.rc)
taviro_resources(taviro)
taviro_link_program(taviro)
target_link_libraries(taviro PRIVATE automation_win32 platform_win32)
target_link_options(taviro PRIVATE -municode $<$<CONFIG:Release>:-s>)

# Brought up to date with every build, stale files removed.
add_custom_target(program_folder ALL
    COMMAND ${CMAKE_COMMAND} -DFROM=${PROJECT_SOURCE_DIR} -DPROGRAM=$<TARGET_FILE:taviro>
            -DSERVER=$<TARGET_FILE:presager> -DDICTIONARY=${CMAKE_BINARY_DIR}/predictor/czech.dict
            -DFOLDER=${CMAKE_BINARY_DIR}/taviro -P ${PROJECT_SOURCE_DIR}/cmake/program_folder.cmake
    VERBATIM)
add_dependencies(program_folder taviro presager dictionary)
