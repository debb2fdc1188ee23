# The person's address books: folders of vCards, and evolution-data-server.
list(APPEND LINUX_SOURCES
    contacts/AddressBookService.cpp
    contacts/ContactFolders.cpp
    contacts/LinuxContactStore.cpp
    contacts/VCardLines.cpp
    contacts/VCards.cpp
)
