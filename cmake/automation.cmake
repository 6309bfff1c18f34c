# The public interface of the automation object: compiled from its description into a header, for the
# object and for typed clients, and into the type library that the program carries inside.
find_program(TAVIRO_WIDL ${TAVIRO_PROCESSOR}-w64-mingw32-widl REQUIRED)
find_program(TAVIRO_PYTHON python3 REQUIRED)
set(gui_sources ${PROJECT_SOURCE_DIR}/automation/win32)
set(TAVIRO_GUI_FOLDER ${CMAKE_BINARY_DIR}/automation)
file(MAKE_DIRECTORY ${TAVIRO_GUI_FOLDER})
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(gui_width --win64)
else()
    set(gui_width --win32)
endif()

# taviro_widl(OUTPUT SOURCE OPTION...)
function(taviro_widl output source)
    set(undate)
    if(output MATCHES "tlb$")
        set(undate COMMAND ${TAVIRO_PYTHON} ${PROJECT_SOURCE_DIR}/tools/undated_typelib.py
                   ${TAVIRO_GUI_FOLDER}/${output})
    endif()
    add_custom_command(OUTPUT ${TAVIRO_GUI_FOLDER}/${output}
        COMMAND ${TAVIRO_WIDL} ${gui_width} ${ARGN} -I ${gui_sources}/idl -L ${TAVIRO_GUI_FOLDER}
                -o ${TAVIRO_GUI_FOLDER}/${output} ${gui_sources}/${source}
        ${undate}
        DEPENDS ${gui_sources}/${source} ${gui_sources}/idl/oaidl.idl ${gui_library_base}
                ${PROJECT_SOURCE_DIR}/tools/undated_typelib.py
        VERBATIM)
endfunction()
taviro_widl(stdole2.tlb idl/stdole2.idl -t)
set(gui_library_base ${TAVIRO_GUI_FOLDER}/stdole2.tlb)
taviro_widl(gui.tlb gui.idl -t)
taviro_widl(gui_interface.h gui.idl -h)
add_custom_target(gui_interface DEPENDS ${TAVIRO_GUI_FOLDER}/gui.tlb ${TAVIRO_GUI_FOLDER}/gui_interface.h)

# For whoever includes <gui_interface.h>.
function(taviro_use_gui_interface target)
    add_dependencies(${target} gui_interface)
    target_include_directories(${target} SYSTEM PRIVATE ${TAVIRO_GUI_FOLDER})
endfunction()
