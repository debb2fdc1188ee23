// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/FolderReader.h"

#include <QByteArrayView>

#include <algorithm>
#include <array>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

using Kind = NameTableBuilder::Kind;

constexpr std::array<std::string_view, 6> leftOutNames{
    "$RECYCLE.BIN", "System Volume Information", "__pycache__", "lost+found",
    "node_modules", "bower_components",
};
// A folder that holds one of these can be made again from elsewhere.
constexpr std::array<std::string_view, 2> cacheMarkers{"CACHEDIR.TAG", "pyvenv.cfg"};

template <std::size_t count>
bool contains(const std::array<std::string_view, count>& names, std::string_view name) {
    return std::ranges::find(names, name) != names.end();
}

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

// Seconds and nanoseconds in one number; only equality counts. Never 0.
std::uint32_t timeOf(const struct stat& status) {
    const auto seconds = static_cast<std::uint64_t>(status.st_mtim.tv_sec);
    const auto nanoseconds = static_cast<std::uint64_t>(status.st_mtim.tv_nsec);
    const std::uint64_t mixed = (seconds * 1'000'000'000U + nanoseconds) * 0x9E3779B97F4A7C15U;
    return static_cast<std::uint32_t>(mixed >> 32U) | 1U;
}

} // namespace

std::string inside(const std::string& folder, std::string_view name) {
    std::string path = folder;
    if (!path.ends_with('/'))
        path += '/';
    return path += name;
}

bool FolderReader::isLeftOut(std::string_view name) {
    return name.empty() || name.starts_with('.') || contains(leftOutNames, name) ||
           !QByteArrayView(name.data(), static_cast<qsizetype>(name.size())).isValidUtf8();
}

std::uint32_t FolderReader::timeOf(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)
               ? linuxdesktop::timeOf(status)
               : 0;
}

std::optional<FolderContents> FolderReader::read(const std::string& path) {
    // O_NOFOLLOW: what was a folder a moment ago may be a link now.
    const int descriptor =
        ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return std::nullopt;
    struct stat status {};
    const std::unique_ptr<DIR, CloseFolder> folder(::fdopendir(descriptor));
    if (!folder) {
        ::close(descriptor);
        return std::nullopt;
    }
    FolderContents contents;
    // Taken before the entries: a change in between is noticed next time.
    if (::fstat(descriptor, &status) == 0)
        contents.time = linuxdesktop::timeOf(status);
    while (const dirent* found = ::readdir(folder.get())) {
        if (contains(cacheMarkers, found->d_name)) {
            contents.entries.clear();
            break;
        }
        if (isLeftOut(found->d_name))
            continue;
        if (auto listed = entry(descriptor, path, found->d_name, found->d_type))
            contents.entries.push_back(*std::move(listed));
    }
    return contents;
}

std::optional<FolderEntry> FolderReader::entry(int folder, const std::string& path,
                                               const char* name, unsigned char type) {
    const auto verdict = [&] { return contentNames_.verdict(name); };
    // Most names need no second look at the disk.
    if (type == DT_REG && verdict() == ContentNames::Verdict::content)
        return FolderEntry{name, Kind::file, false};
    if (type != DT_REG && type != DT_DIR && type != DT_LNK && type != DT_UNKNOWN)
        return std::nullopt;
    bool isLink = type == DT_LNK;
    struct stat status {};
    if (type != DT_DIR) {
        if (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0)
            return std::nullopt;
        isLink = S_ISLNK(status.st_mode);
        if (isLink && ::fstatat(folder, name, &status, AT_NO_AUTOMOUNT) != 0)
            return std::nullopt; // leads nowhere
    }
    if (type == DT_DIR || S_ISDIR(status.st_mode))
        return FolderEntry{name, Kind::folder, !isLink && !leftOut_.contains(inside(path, name))};
    if (!S_ISREG(status.st_mode))
        return std::nullopt;
    switch (verdict()) {
    case ContentNames::Verdict::content:
        break;
    case ContentNames::Verdict::notContent:
        return std::nullopt;
    case ContentNames::Verdict::contentUnlessExecutable:
        if ((status.st_mode & (S_IXUSR | S_IXGRP | S_IXOTH)) != 0)
            return std::nullopt;
    }
    return FolderEntry{name, Kind::file, false};
}

} // namespace skipnest::linuxdesktop
