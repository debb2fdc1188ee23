# What a person sees of the agent outside its own windows: tray, autostart, file managers, icons.
find_package(Qt6 6.4 REQUIRED COMPONENTS DBus Svg Widgets)

list(APPEND LINUX_SOURCES
    shell/BusSignal.cpp
    shell/DBusNotifications.cpp
    shell/DetachedProcesses.cpp
    shell/FileManagerMenu.cpp
    shell/InstalledProgram.cpp
    shell/LinuxScreens.cpp
    shell/MenuBarImages.cpp
    shell/QtStatusItem.cpp
    shell/ThemeIcons.cpp
    shell/TrayWatch.cpp
    shell/XdgLoginItem.cpp
)
# The drawings belong to the program: the status item shows them before anything is installed.
set(icons ${PROJECT_SOURCE_DIR}/packaging/icons)
file(GLOB glyphs CONFIGURE_DEPENDS ${icons}/menubar/*.svg)
set(icon_list "${icons}/com.skipnest.Skipnest.svg;${glyphs}")
set(icon_entries "")
foreach(icon ${icon_list})
    file(RELATIVE_PATH name ${icons} ${icon})
    string(APPEND icon_entries "<file alias=\"${name}\">${icon}</file>")
endforeach()
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/shellicons.qrc CONTENT
    "<RCC><qresource prefix=\"/skipnest/icons\">${icon_entries}</qresource></RCC>\n")
qt_add_resources(LINUX_SOURCES ${CMAKE_CURRENT_BINARY_DIR}/shellicons.qrc)
list(APPEND LINUX_LINK Qt6::DBus Qt6::Svg Qt6::Widgets)
