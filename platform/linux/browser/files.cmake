# Tabs of browsers, by way of their extension and its host.
list(APPEND LINUX_SOURCES
    browser/BrowserProcess.cpp
    browser/ExtensionTabs.cpp
    browser/TabListing.cpp
    browser/TabsServer.cpp
)
