zr_library(zr_script script.cpp script_words.cpp)
target_link_libraries(zr_script PUBLIC zr_utf8)
zr_library(zr_driverhost driverhost_options.cpp dump.cpp window_outline.cpp)
target_link_libraries(zr_driverhost PUBLIC zr_script zr_ppd zr_common)
if(WIN32)
    target_sources(zr_driverhost PRIVATE driverhost_text.cpp driverhost_windows.cpp driverhost_controls.cpp
        driverhost_programs.cpp driverhost_sheet_thread.cpp driverhost_player.cpp driverhost_sheet_work.cpp
        driverhost_store.cpp driverhost_settings_file.cpp driverhost_work.cpp screenshot.cpp)
    target_link_libraries(zr_driverhost PUBLIC zr_host_platform gdiplus comctl32 gdi32 user32 shell32 ole32)

    zr_program(driverhost driverhost.cpp driverhost_driver.cpp driverhost_sheets.cpp driverhost.rc)
    target_link_libraries(driverhost PRIVATE zr_driverhost zr_host_install compstui)
    # What it installs stands beside it.
    add_dependencies(driverhost x100drvui ZRPDS31J DataManager PrinterDriverApplication x100_driver_files)
endif()
