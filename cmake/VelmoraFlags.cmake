# What every target of Velmora is compiled and linked with, in one place.
add_library(velmora_flags INTERFACE)
add_library(Velmora::flags ALIAS velmora_flags)

target_compile_features(velmora_flags INTERFACE cxx_std_20)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported()

target_include_directories(velmora_flags INTERFACE "${PROJECT_SOURCE_DIR}")
target_compile_options(velmora_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wold-style-cast -Wcast-qual -Wformat=2 -Wundef
    # Aggregates have defaults: an initialiser names only what differs.
    -Wno-missing-field-initializers)
if(VELMORA_WARNINGS_AS_ERRORS)
    target_compile_options(velmora_flags INTERFACE -Werror)
endif()

if(VELMORA_SANITIZERS)
    target_compile_options(velmora_flags INTERFACE
        -fsanitize=${VELMORA_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(velmora_flags INTERFACE -fsanitize=${VELMORA_SANITIZERS})
elseif(NOT APPLE)
    target_compile_options(velmora_flags INTERFACE
        -fstack-protector-strong -fstack-clash-protection
        -U_FORTIFY_SOURCE
        # Only what is optimized can be fortified.
        $<$<NOT:$<OR:$<CONFIG:Debug>,$<BOOL:$<TARGET_PROPERTY:VELMORA_UNOPTIMIZED>>>>:-D_FORTIFY_SOURCE=2>)
    target_link_options(velmora_flags INTERFACE -Wl,-z,relro -Wl,-z,now)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
        target_compile_options(velmora_flags INTERFACE -fcf-protection=full)
    endif()
endif()

# Qt without its macros' short names and without silent text conversions.
add_library(velmora_qt_flags INTERFACE)
add_library(Velmora::qt_flags ALIAS velmora_qt_flags)
target_compile_definitions(velmora_qt_flags INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_URL_CAST_FROM_STRING QT_DISABLE_DEPRECATED_BEFORE=0x060400)
