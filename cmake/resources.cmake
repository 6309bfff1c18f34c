# The dialogs' layouts and the manifests, for every program that shows dialogs.
function(taviro_resources target)
    target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/resources/taviro.rc)
endfunction()
file(GLOB taviro_layouts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/resources/dialogs/*.rc)
set_source_files_properties(${PROJECT_SOURCE_DIR}/resources/taviro.rc
    TARGET_DIRECTORY taviro_flags PROPERTIES
    INCLUDE_DIRECTORIES ${PROJECT_SOURCE_DIR}
    OBJECT_DEPENDS "${taviro_layouts};${PROJECT_SOURCE_DIR}/resources/taviro.manifest;${PROJECT_SOURCE_DIR}/resources/dialogs.manifest;${PROJECT_SOURCE_DIR}/resources/taviro.ico;${PROJECT_SOURCE_DIR}/platform/win32/resource_ids.h;${PROJECT_SOURCE_DIR}/dialogs/control_ids.h;${PROJECT_SOURCE_DIR}/dialogs/product.h")
