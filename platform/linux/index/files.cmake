# The index of names: targets are found without asking the disk.
list(APPEND LINUX_SOURCES
    index/ContentNames.cpp
    index/FolderReader.cpp
    index/FolderScan.cpp
    index/IndexCache.cpp
    index/IndexFolders.cpp
    index/IndexWatch.cpp
    index/IndexWorker.cpp
    index/LinuxFileIndex.cpp
    index/NameFolding.cpp
    index/NameStore.cpp
    index/NameTable.cpp
    index/NameTableBuilder.cpp
    index/StoreUpdate.cpp
    index/Titles.cpp
)
