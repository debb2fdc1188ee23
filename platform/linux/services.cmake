# What the backend has beside X11: files, bookmarks, paths, the instance lock, the session without X.
pkg_check_modules(WAYLAND REQUIRED IMPORTED_TARGET wayland-client)
pkg_get_variable(WAYLAND_PROTOCOLS_FOLDER wayland-protocols pkgdatadir)
pkg_get_variable(WAYLAND_SCANNER wayland-scanner wayland_scanner)

# The compositor protocol's code. It is C that C++ takes too, once its header has said that the
# tables have external linkage.
set(XDG_ACTIVATION ${WAYLAND_PROTOCOLS_FOLDER}/staging/xdg-activation/xdg-activation-v1.xml)
set(XDG_ACTIVATION_HEADER ${CMAKE_CURRENT_BINARY_DIR}/wayland/xdg-activation-v1-client-protocol.h)
set(XDG_ACTIVATION_CODE ${CMAKE_CURRENT_BINARY_DIR}/wayland/xdg-activation-v1-protocol.c)
file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/wayland)
add_custom_command(
    OUTPUT ${XDG_ACTIVATION_HEADER} ${XDG_ACTIVATION_CODE}
    COMMAND ${WAYLAND_SCANNER} client-header ${XDG_ACTIVATION} ${XDG_ACTIVATION_HEADER}
    COMMAND ${WAYLAND_SCANNER} private-code ${XDG_ACTIVATION} ${XDG_ACTIVATION_CODE}
    DEPENDS ${XDG_ACTIVATION})
set_source_files_properties(${XDG_ACTIVATION_CODE} PROPERTIES
    LANGUAGE CXX SKIP_AUTOMOC ON COMPILE_OPTIONS "-include;${XDG_ACTIVATION_HEADER};-w")
set_source_files_properties(WaylandActivation.cpp PROPERTIES
    INCLUDE_DIRECTORIES ${CMAKE_CURRENT_BINARY_DIR}/wayland)

set(SKIPNEST_SERVICE_URL "" CACHE STRING
    "Address of the web service, https; without one nothing is ever sent")
set(SKIPNEST_BUILD 1 CACHE STRING "Build number, counted up by whoever packages releases")
set_source_files_properties(LinuxAppInfo.cpp PROPERTIES COMPILE_DEFINITIONS
    "SKIPNEST_VERSION=\"${PROJECT_VERSION}\";SKIPNEST_BUILD=\"${SKIPNEST_BUILD}\";SKIPNEST_SERVICE_URL=\"${SKIPNEST_SERVICE_URL}\"")

list(APPEND LINUX_SOURCES
    HeadlessPorts.cpp
    LinuxAppInfo.cpp
    LinuxBackend.cpp
    LinuxBookmarks.cpp
    LinuxInstanceLock.cpp
    PosixFiles.cpp
    SessionKind.cpp
    SocketPeer.cpp
    SystemError.cpp
    TerminationSignals.cpp
    WaylandActivation.cpp
    WaylandWorkspace.cpp
    WindowKeyboardCapture.cpp
    ${XDG_ACTIVATION_CODE}
    ${XDG_ACTIVATION_HEADER}
)
list(APPEND LINUX_LINK PkgConfig::WAYLAND)
