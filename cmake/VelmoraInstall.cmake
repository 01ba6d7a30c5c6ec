# What is installed beside the translations, and where. The prefix may be chosen at installation:
# `cmake --install build/release --prefix ~/.local`.
include(GNUInstallDirs)

set(id com.local.velmora)
set(packaging "${PROJECT_SOURCE_DIR}/packaging")
set(icons "${CMAKE_INSTALL_DATADIR}/icons/hicolor")

install(TARGETS velmora RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES "${PROJECT_SOURCE_DIR}/resources/chime.wav" DESTINATION "${CMAKE_INSTALL_DATADIR}/velmora")

foreach(size 16 22 24 32 48 64 128 256 512)
    install(FILES "${PROJECT_SOURCE_DIR}/resources/icons/${id}-${size}.png"
        DESTINATION "${icons}/${size}x${size}/apps" RENAME "${id}.png")
endforeach()
install(FILES "${PROJECT_SOURCE_DIR}/resources/icons/${id}.svg" DESTINATION "${icons}/scalable/apps")
install(FILES "${PROJECT_SOURCE_DIR}/resources/icons/${id}-symbolic.svg"
    DESTINATION "${icons}/symbolic/apps")

# The entry names the program as it is found: by its name where every session looks, by its whole
# path in a prefix of the user's own.
install(CODE "set(template \"${packaging}/${id}.desktop.in\")
set(result \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/applications/${id}.desktop\")
set(binaries \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")")
install(SCRIPT "${CMAKE_CURRENT_LIST_DIR}/InstallDesktopEntry.cmake")
install(FILES "${packaging}/${id}.metainfo.xml" DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")

install(FILES "${packaging}/completions/velmora.bash"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME velmora)
install(FILES "${packaging}/completions/_velmora"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions")
install(FILES "${packaging}/completions/velmora.fish"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d")
install(FILES "${packaging}/copyright" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/velmora")
install(FILES "${packaging}/velmora.service"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/velmora/examples")

# The manual page and the list of changes, compressed the same way every time.
find_program(VELMORA_GZIP gzip REQUIRED)
# velmora_compressed(<file> <name in the build folder> <destination>)
function(velmora_compressed source name destination)
    set(result "${PROJECT_BINARY_DIR}/packaging/${name}.gz")
    add_custom_command(OUTPUT "${result}"
        COMMAND "${CMAKE_COMMAND}" -E copy "${source}" "${PROJECT_BINARY_DIR}/packaging/${name}"
        COMMAND "${VELMORA_GZIP}" --best --no-name --force "${PROJECT_BINARY_DIR}/packaging/${name}"
        DEPENDS "${source}"
        VERBATIM)
    add_custom_target(velmora_${name}_gz ALL DEPENDS "${result}")
    install(FILES "${result}" DESTINATION "${destination}")
endfunction()
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/packaging")
velmora_compressed("${packaging}/velmora.1" velmora.1 "${CMAKE_INSTALL_MANDIR}/man1")
velmora_compressed("${packaging}/changelog" changelog "${CMAKE_INSTALL_DATADIR}/doc/velmora")

include(VelmoraPackage)
