# Flags and target kinds of this project. Every target is made by one of these functions.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_SHARED_LIBRARY_PREFIX "")
set(CMAKE_SHARED_MODULE_PREFIX "")

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
    target_compile_definitions(zr_flags INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601
        PSAPI_VERSION=1 _GLIBCXX_ASSERTIONS)
    target_compile_options(zr_flags INTERFACE -fstack-protector-strong)
    target_link_options(zr_flags INTERFACE -fstack-protector-strong)
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
endfunction()

# zr_module(name source...): one of the product's DLLs.
function(zr_module name)
    add_library(${name} SHARED ${ARGN})
    target_link_libraries(${name} PRIVATE zr_flags)
endfunction()

# zr_program(name source...)
function(zr_program name)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE zr_flags)
endfunction()

# zr_test(name SOURCES source... [LIBS library...]): a GoogleTest program. Natively ctest knows each of its tests; under
# Wine, where a process takes longer to start than most tests to run, it knows the program as one.
function(zr_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE zr_flags ${ARG_LIBS} gtest gtest_main)
    target_compile_definitions(${name} PRIVATE ZR_TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data"
        ZR_RESOURCES_DIR="${PROJECT_SOURCE_DIR}/resources")
    if(WIN32)
        add_test(NAME ${name} COMMAND ${name})
        # One spooler, one registry and one display serve them all.
        set_tests_properties(${name} PROPERTIES TIMEOUT 300 RUN_SERIAL TRUE)
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
