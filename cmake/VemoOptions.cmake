# Standard, warnings, hardening and instrumentation, as interface targets that every target of the tree links.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
if(WIN32)
    # Libraries are looked for beside the program, and by their plain names.
    set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
    set(CMAKE_SHARED_MODULE_PREFIX "")
endif()

option(VEMO_WERROR "Treat warnings as errors" ON)
set(VEMO_SANITIZE "" CACHE STRING "Value for -fsanitize= (empty: none)")
option(VEMO_FUZZ "Build the libFuzzer targets (clang only)" OFF)
option(VEMO_COVERAGE "Count which lines run (gcc)" OFF)
set(VEMO_FUZZ_SECONDS 0 CACHE STRING "How long a libFuzzer target runs under ctest (0: a few seconds)")

include(CheckPIESupported)
check_pie_supported()

find_program(VEMO_CCACHE ccache)
if(VEMO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_C_COMPILER_LAUNCHER "${VEMO_CCACHE}")
    set(CMAKE_CXX_COMPILER_LAUNCHER "${VEMO_CCACHE}")
endif()

add_library(vemo_options INTERFACE)
if(MSVC)
    target_compile_options(vemo_options INTERFACE /W4 /utf-8 /permissive- /Zc:__cplusplus /guard:cf $<$<BOOL:${VEMO_WERROR}>:/WX>)
    target_compile_definitions(vemo_options INTERFACE WIN32_LEAN_AND_MEAN NOMINMAX UNICODE _UNICODE)
    target_link_options(vemo_options INTERFACE /guard:cf)
else()
    target_compile_options(vemo_options INTERFACE
        -Wall -Wextra -Wshadow -Wconversion -Wno-sign-conversion -fno-omit-frame-pointer
        $<$<BOOL:${VEMO_WERROR}>:-Werror>)
    if(VEMO_SANITIZE)
        # The check of dynamic types compares addresses of type information, which a library loaded at run time has its own of.
        target_compile_options(vemo_options INTERFACE -fsanitize=${VEMO_SANITIZE} -fno-sanitize=vptr
            -fno-sanitize-recover=all)
        target_link_options(vemo_options INTERFACE -fsanitize=${VEMO_SANITIZE})
    else()
        target_compile_options(vemo_options INTERFACE -fstack-protector-strong
            $<$<CONFIG:Release,RelWithDebInfo>:-U_FORTIFY_SOURCE>
            $<$<CONFIG:Release,RelWithDebInfo>:-D_FORTIFY_SOURCE=2>)
        target_link_options(vemo_options INTERFACE -Wl,-z,relro,-z,now)
    endif()
    if(VEMO_FUZZ)
        target_compile_options(vemo_options INTERFACE -fsanitize=fuzzer-no-link)
    endif()
    if(VEMO_COVERAGE)
        target_compile_options(vemo_options INTERFACE --coverage -fprofile-update=atomic)
        target_link_options(vemo_options INTERFACE --coverage)
    endif()
endif()

add_library(vemo_qt_options INTERFACE)
target_link_libraries(vemo_qt_options INTERFACE vemo_options)
target_compile_definitions(vemo_qt_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_USE_QSTRINGBUILDER QT_NO_FOREACH QT_DEPRECATED_WARNINGS)
