# The program itself; what it needs no platform for stands in libraries.
zr_library(zr_job_property_command_line command_line.cpp)
target_link_libraries(zr_job_property_command_line PUBLIC zr_store)

if(WIN32)
    zr_program(PrinterDriverApplication background.cpp data_setting_key.cpp edited_settings.cpp editor.cpp main.cpp messages.cpp
        running_mark.cpp setting_key_root.cpp setting_list.cpp show.cpp subject_list.cpp window.cpp
        window_controls.cpp application.rc)
    set_target_properties(PrinterDriverApplication PROPERTIES WIN32_EXECUTABLE TRUE)
    target_link_libraries(PrinterDriverApplication PRIVATE zr_job_property_command_line zr_job_settings zr_store
        zr_strings zr_common zr_stack_guard)
    # The libraries of windows take longer to load than -exit may take, for which a sheet's end waits.
    foreach(library user32 gdi32)
        set(delayed ${CMAKE_CURRENT_BINARY_DIR}/lib${library}_delayed.a)
        add_custom_command(OUTPUT ${delayed}
            COMMAND ${CMAKE_DLLTOOL} --input-def ${CMAKE_CURRENT_SOURCE_DIR}/${library}.def --output-delaylib ${delayed}
            DEPENDS ${library}.def VERBATIM)
        target_sources(PrinterDriverApplication PRIVATE ${delayed})
        target_link_libraries(PrinterDriverApplication PRIVATE ${delayed})
    endforeach()
    target_link_libraries(PrinterDriverApplication PRIVATE delayimp)
    set_property(SOURCE application.rc PROPERTY OBJECT_DEPENDS
        "${PROJECT_SOURCE_DIR}/resources/strings.def;${PROJECT_SOURCE_DIR}/resources/strings.rc;\
${PROJECT_SOURCE_DIR}/resources/module_version.rc;\
${PROJECT_SOURCE_DIR}/resources/x100.ppd;${CMAKE_CURRENT_SOURCE_DIR}/window.rc;${CMAKE_CURRENT_SOURCE_DIR}/texts.def;\
${CMAKE_CURRENT_SOURCE_DIR}/window_resource.h;${CMAKE_CURRENT_SOURCE_DIR}/application.manifest")
endif()
