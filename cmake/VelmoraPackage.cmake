# The .deb: `cpack --config build/release/CPackConfig.cmake`.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velmora)
set(CPACK_PACKAGE_VENDOR "The Velmora authors")
set(CPACK_PACKAGE_CONTACT "The Velmora authors <velmora@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "breathing reminder that floats above the desktop")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# What the program is linked with is found by dpkg-shlibdeps; the X11 plugin comes with libqt6gui6.
# The way to the sound server is opened while the program runs, so no tool can find it.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS libcanberra-pulse)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "hicolor-icon-theme, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"A softly wobbling orb floats above the other windows. Every few minutes,
inside the hours that the user chooses, it breathes deeper for thirty
seconds, changes its colours and chimes. A click on it says that one is done.

Velmora takes no focus, lets clicks through where it draws nothing, and is
reached through the orb and through an item in the desktop's panel.")

include(CPack)
