# Tabs of browsers, by way of their extension and its host.
list(APPEND LINUX_SOURCES
    browser/BrowserHosts.cpp
    browser/BrowserProcess.cpp
    browser/ExtensionTabs.cpp
    browser/LinuxBrowserExtensions.cpp
    browser/SelectedWindow.cpp
    browser/TabListing.cpp
    browser/TabsServer.cpp
)
