# Flags and target kinds of this project. Every target is made by one of these functions.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_SHARED_LIBRARY_PREFIX "")
set(CMAKE_SHARED_MODULE_PREFIX "")

# With another compiler the tools would work and write comments that are not in the code page of a favourite.
if(ZR_HOST_TOOLS AND NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    message(FATAL_ERROR "The build's own tools need g++: ${CMAKE_CXX_COMPILER_ID} has no literals in code page 932.")
endif()

add_library(zr_flags INTERFACE)
target_include_directories(zr_flags INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(zr_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # A Japanese literal is in the product's ANSI code page in the binary. clang, used for fuzzing only,
    # has no such option; its literals stay UTF-8.
    target_compile_options(zr_flags INTERFACE -finput-charset=UTF-8 -fexec-charset=CP932)
    # GCC 12 sees overlapping copies inside its own std::string at -O2 and above.
    target_compile_options(zr_flags INTERFACE -Wno-restrict)
endif()
if(WIN32)
    # What resources/module_version.rc tells.
    string(REPLACE "." "," version_numbers ${PROJECT_VERSION})
    add_compile_definitions($<$<COMPILE_LANGUAGE:RC>:ZR_VERSION=${version_numbers}>
        $<$<COMPILE_LANGUAGE:RC>:ZR_VERSION_TEXT=${PROJECT_VERSION}>)
    target_compile_definitions(zr_flags INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601
        PSAPI_VERSION=1 _GLIBCXX_ASSERTIONS)
    target_compile_options(zr_flags INTERFACE -fstack-protector-strong)
    target_link_options(zr_flags INTERFACE -fstack-protector-strong)
    # A section that begins at a page of its file is mapped where it is loaded; others, of which the images are many
    # megabytes, Wine reads whole each time.
    target_link_options(zr_flags INTERFACE -Wl,--file-alignment=4096)
endif()
if(ZR_SANITIZE)
    target_compile_options(zr_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer -D_GLIBCXX_ASSERTIONS)
    target_link_options(zr_flags INTERFACE -fsanitize=address,undefined)
endif()
if(ZR_FUZZERS)
    target_compile_options(zr_flags INTERFACE -fsanitize=fuzzer-no-link,address,undefined
        -fno-sanitize-recover=all)
    target_link_options(zr_flags INTERFACE -fsanitize=address,undefined)
endif()

# zr_library(name source...): a static library. Its sources are portable unless the call stands in if(WIN32).
function(zr_library name)
    add_library(${name} STATIC ${ARGN})
    target_link_libraries(${name} PUBLIC zr_flags)
    # clang's library lacks what some of them need; the fuzz targets name the ones they are made of.
    set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL ${ZR_FUZZERS})
endfunction()

# Of modules and programs the same sources make the same bytes, at whatever time.
set(zr_timeless_link $<$<BOOL:${WIN32}>:-Wl,--no-insert-timestamp>)

# zr_module(name source...): one of the product's DLLs.
function(zr_module name)
    add_library(${name} SHARED ${ARGN})
    target_link_libraries(${name} PRIVATE zr_flags)
    target_link_options(${name} PRIVATE ${zr_timeless_link})
endfunction()

# zr_program(name source...)
function(zr_program name)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE zr_flags)
    target_link_options(${name} PRIVATE ${zr_timeless_link})
endfunction()

# zr_host_tool(name SOURCES source... [LIBS library...]): a program that the build itself runs, so it is made for the
# machine that builds. Where all else is made for another one, a native build of this tree in host-tools makes it.
function(zr_host_tool name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    if(NOT WIN32)
        zr_program(${name} ${ARG_SOURCES})
        target_link_libraries(${name} PRIVATE ${ARG_LIBS})
        set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL TRUE)
        return()
    endif()
    set(build ${CMAKE_BINARY_DIR}/host-tools)
    # Only the native build knows what the program is made of, so it is asked each time; where nothing has changed, the
    # program keeps its time and nothing behind it is made again.
    add_custom_target(host_${name}
        COMMAND ${CMAKE_COMMAND} --build ${build} --target ${name} -- --quiet
        BYPRODUCTS ${build}/bin/${name} JOB_POOL host_tools
        COMMENT "Bringing ${name} up to date" VERBATIM)
    if(NOT TARGET host_tools_configured)
        zr_configure_host_tools(${build})
    endif()
    add_dependencies(host_${name} host_tools_configured)
endfunction()

# The compilers, flags and toolchain file of this build must not reach that of the tools, which is configured anew when
# its arguments change.
function(zr_configure_host_tools build)
    # One build at a time works in the folder.
    set_property(GLOBAL APPEND PROPERTY JOB_POOLS host_tools=1)
    set(arguments -S ${PROJECT_SOURCE_DIR} -B ${build} -G Ninja -DZR_HOST_TOOLS=ON -DCMAKE_BUILD_TYPE=Release
        -DCMAKE_CXX_FLAGS_RELEASE=-O1)
    find_program(ZR_HOST_C_COMPILER gcc)
    find_program(ZR_HOST_CXX_COMPILER g++)
    foreach(language C CXX)
        # Without it the machine's default compiler is taken, which may be the same one under another name.
        if(ZR_HOST_${language}_COMPILER)
            list(APPEND arguments -DCMAKE_${language}_COMPILER=${ZR_HOST_${language}_COMPILER})
        endif()
        if(CMAKE_${language}_COMPILER_LAUNCHER)
            list(APPEND arguments -DCMAKE_${language}_COMPILER_LAUNCHER=${CMAKE_${language}_COMPILER_LAUNCHER})
        endif()
    endforeach()
    # Written only when its content changes.
    file(CONFIGURE OUTPUT ${build}-arguments CONTENT "${arguments}\n" @ONLY)
    # A cache of other arguments keeps those that are no longer given.
    add_custom_command(OUTPUT ${build}/build.ninja
        COMMAND ${CMAKE_COMMAND} -E rm -rf ${build}/CMakeCache.txt ${build}/CMakeFiles
        COMMAND ${CMAKE_COMMAND} -E env --unset=CC --unset=CXX --unset=CFLAGS --unset=CXXFLAGS --unset=LDFLAGS
            --unset=CMAKE_TOOLCHAIN_FILE ${CMAKE_COMMAND} ${arguments} --log-level=WARNING
        DEPENDS ${build}-arguments
        COMMENT "Configuring the build's own tools" VERBATIM)
    add_custom_target(host_tools_configured DEPENDS ${build}/build.ninja)
endfunction()

# zr_generated_file(target file... TOOL tool [SOURCES source...]): the files that a tool of zr_host_tool writes; its
# arguments are the sources and the files.
function(zr_generated_file target)
    cmake_parse_arguments(ARG "" "TOOL" "SOURCES" ${ARGN})
    if(WIN32)
        set(program ${CMAKE_BINARY_DIR}/host-tools/bin/${ARG_TOOL})
        set(made_by ${program})
    else()
        set(program ${ARG_TOOL})
        set(made_by ${ARG_TOOL})
    endif()
    add_custom_command(OUTPUT ${ARG_UNPARSED_ARGUMENTS}
        COMMAND ${program} ${ARG_SOURCES} ${ARG_UNPARSED_ARGUMENTS}
        DEPENDS ${made_by} ${ARG_SOURCES} VERBATIM)
    add_custom_target(${target} DEPENDS ${ARG_UNPARSED_ARGUMENTS})
endfunction()

# zr_test(name SOURCES source... [LIBS library...] [PARALLEL]): a GoogleTest program. Natively ctest knows each of its
# tests; under Wine, where a process takes longer to start than most tests to run, it knows the program as one. Two of
# these may run at once only in prefixes of their own, as tools/with-lanes.sh has them. PARALLEL: its threads race, so
# that it is not kept to its lane's processor.
function(zr_test name)
    cmake_parse_arguments(ARG "PARALLEL" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE zr_flags ${ARG_LIBS} gtest gtest_main)
    target_compile_definitions(${name} PRIVATE ZR_TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data"
        ZR_RESOURCES_DIR="${PROJECT_SOURCE_DIR}/resources")
    if(WIN32)
        add_test(NAME ${name} COMMAND ${name})
        set_tests_properties(${name} PROPERTIES TIMEOUT 600)
        if(ARG_PARALLEL)
            set_tests_properties(${name} PROPERTIES ENVIRONMENT ZR_ALL_PROCESSORS=1)
        endif()
    else()
        gtest_discover_tests(${name} NO_PRETTY_VALUES PROPERTIES TIMEOUT 120)
    endif()
endfunction()

# zr_fuzzer(name SOURCES source... [LIBS library...]): a libFuzzer program, in the fuzz preset only.
function(zr_fuzzer name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE zr_flags ${ARG_LIBS})
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endfunction()

# zr_benchmark(name SOURCES source... [LIBS library...]): a Google Benchmark program, in the bench preset only.
function(zr_benchmark name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE zr_flags ${ARG_LIBS} benchmark::benchmark benchmark::benchmark_main)
endfunction()
