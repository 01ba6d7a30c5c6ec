# Runs at installation: writes the desktop entry `result` from `template` for a program in `binaries`.
if(binaries MATCHES "^/usr(/local)?/bin$")
    set(VELMORA_EXEC velmora)
else()
    # Quoted as the entries' own rules ask, so that the prefix may have any name.
    string(REGEX REPLACE "([\"`$\\\\])" "\\\\\\1" VELMORA_EXEC "${binaries}/velmora")
    string(REPLACE "\\" "\\\\" VELMORA_EXEC "${VELMORA_EXEC}")
    string(REPLACE "%" "%%" VELMORA_EXEC "${VELMORA_EXEC}")
    set(VELMORA_EXEC "\"${VELMORA_EXEC}\"")
endif()
message(STATUS "Installing: ${result}")
configure_file("${template}" "${result}" @ONLY)
file(CHMOD "${result}" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
