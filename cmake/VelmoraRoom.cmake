# velmora_room(<name> HEADERS <files> SOURCES <files> LINK <targets>)
#
# One folder, one static library, one place in the architecture. What a room may use is what it
# links: nothing else is on its include path but the source tree itself.
function(velmora_room name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;SOURCES;LINK;PRIVATE_LINK")
    if(arg_SOURCES)
        add_library(velmora_${name} STATIC ${arg_SOURCES})
        set(scope PUBLIC)
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

# velmora_tests(<room> SOURCES <files> LINK <targets>)
#
# The tests of one room as one program; every TEST becomes a CTest test of its own.
function(velmora_tests room)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "MAIN" "SOURCES;LINK")
    add_executable(velmora_${room}_tests ${arg_SOURCES})
    set(main GTest::gtest_main)
    if(arg_MAIN)
        target_sources(velmora_${room}_tests PRIVATE "${arg_MAIN}")
        set(main GTest::gtest)
    endif()
    target_link_libraries(velmora_${room}_tests PRIVATE Velmora::flags ${arg_LINK} ${main})
    # Under a sanitizer the tests themselves are compiled far sooner than they would be improved; only
    # those that compute much are worth it.
    if(VELMORA_SANITIZERS AND NOT room MATCHES "^(orb|model)$")
        target_compile_options(velmora_${room}_tests PRIVATE -O0)
    endif()
    gtest_discover_tests(velmora_${room}_tests DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
endfunction()
