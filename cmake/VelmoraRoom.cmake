# velmora_room(<name> HEADERS <files> SOURCES <files> LINK <targets>)
#
# One folder, one static library, one place in the architecture. What a room may use is what it
# links: nothing else is on its include path but the source tree itself.
function(velmora_room name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;SOURCES;LINK;PRIVATE_LINK")
    if(arg_SOURCES)
        add_library(velmora_${name} STATIC ${arg_SOURCES})
        set(scope PUBLIC)
        velmora_not_judged("${CMAKE_CURRENT_BINARY_DIR}/velmora_${name}_autogen")
        target_link_libraries(velmora_${name} PUBLIC Velmora::flags ${arg_LINK} PRIVATE ${arg_PRIVATE_LINK})
    else()
        add_library(velmora_${name} INTERFACE)
        set(scope INTERFACE)
        target_link_libraries(velmora_${name} INTERFACE Velmora::flags ${arg_LINK})
    endif()
    add_library(Velmora::${name} ALIAS velmora_${name})
    target_sources(velmora_${name} ${scope}
        FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${arg_HEADERS})
endfunction()

# velmora_compile_soon(<target>)
#
# Tests run for a moment and are compiled for minutes: they are not improved. What they test is.
function(velmora_compile_soon target)
    target_compile_options(${target} PRIVATE -O0)
    set_target_properties(${target} PROPERTIES VELMORA_UNOPTIMIZED ON)
endfunction()

# velmora_tests(<room> [QT] [COMPUTES] [MAIN <target>] SOURCES <files> LINK <targets>)
#
# The tests of one room as one program; every TEST becomes a CTest test of its own. With QT the room
# is compiled with the toolkit's flags; MAIN has a main function other than GoogleTest's. Tests that
# compute much by themselves say so.
function(velmora_tests room)
    cmake_parse_arguments(PARSE_ARGV 1 arg "QT;COMPUTES" "MAIN" "SOURCES;LINK")
    add_executable(velmora_${room}_tests ${arg_SOURCES})
    set(main GTest::gtest_main)
    if(arg_MAIN)
        set(main ${arg_MAIN} GTest::gtest)
    endif()
    target_link_libraries(velmora_${room}_tests PRIVATE Velmora::flags ${arg_LINK} ${main})
    if(NOT arg_COMPUTES)
        set(owner velmora_precompiled)
        if(arg_QT)
            set(owner velmora_precompiled_qt)
        endif()
        velmora_compile_soon(velmora_${room}_tests)
        target_precompile_headers(velmora_${room}_tests REUSE_FROM ${owner})
    endif()
    gtest_discover_tests(velmora_${room}_tests DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
endfunction()
