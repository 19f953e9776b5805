zr_test(job_property_command_line_test SOURCES command_line_test.cpp plug_in_lines_test.cpp
    LIBS zr_job_property_command zr_job_property_command_line)
if(WIN32)
    zr_test(job_property_background_test SOURCES background_test.cpp LIBS DataManager advapi32 psapi)
    add_dependencies(job_property_background_test PrinterDriverApplication setting_key_peer)

    add_test(NAME job_property_application_imports COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/imports.sh
        x86_64-w64-mingw32-objdump $<TARGET_FILE:PrinterDriverApplication>)

    zr_test(job_property_show_test SOURCES property_window.cpp show_test.cpp window_editor_test.cpp window_test.cpp
        LIBS zr_job_settings zr_default_settings DataManager comctl32 advapi32)
    add_dependencies(job_property_show_test PrinterDriverApplication setting_key_peer)
endif()
