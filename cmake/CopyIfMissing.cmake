# Copies SOURCE to DESTINATION unless DESTINATION already exists: the default settings file
# goes beside the program once and never replaces the user's own.
# Run as `cmake -DSOURCE=... -DDESTINATION=... -P CopyIfMissing.cmake` or included with both set.
if(NOT EXISTS "${DESTINATION}")
    get_filename_component(folder "${DESTINATION}" DIRECTORY)
    file(MAKE_DIRECTORY "${folder}")
    file(COPY_FILE "${SOURCE}" "${DESTINATION}")
    set(COPIED_IF_MISSING TRUE)
else()
    set(COPIED_IF_MISSING FALSE)
endif()
