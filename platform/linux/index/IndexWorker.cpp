// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/IndexWorker.h"

#include "platform/linux/crash/AlternateStack.h"
#include "platform/linux/index/IndexCache.h"
#include "platform/linux/index/StoreUpdate.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

// Above it every change costs some 50 ms for the table of recent names; a scan empties that.
constexpr NameTable::Id mostRecent = 100'000;
// While the first scan runs, its names so far are offered from this number on, then ever less
// often: sorting them takes time from the reading.
constexpr std::size_t firstOffer = 20'000;
constexpr std::size_t offerGrowth = 4;

// Of this thread only: Linux keeps both for each thread.
void yieldToEverybody() {
    constexpr int niceness = 10;
    constexpr int ofProcess = 1;
    constexpr int idleClass = 3 << 13;
    (void)::setpriority(PRIO_PROCESS, 0, niceness);
    (void)::syscall(SYS_ioprio_set, ofProcess, 0, idleClass);
}

std::string encoded(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

} // namespace

// A scan of everything, a folder at a time.
struct IndexWorker::Scan {
    Scan(FolderReader& reader, FolderScan::Entered entered)
        : folders(builder, reader, std::move(entered)) {}

    NameTableBuilder builder;
    FolderScan folders;
    std::size_t nextOffer = firstOffer;
};

IndexWorker::IndexWorker(IndexFolders folders, Sink sink)
    : folders_(std::move(folders)), sink_(std::move(sink)),
      wakeUp_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)),
      mounts_(::open(QFile::encodeName(folders_.mountTable).constData(), O_RDONLY | O_CLOEXEC)),
      watch_(folders_.mostWatched) {
    thread_ = std::thread([this] { run(); });
}

IndexWorker::~IndexWorker() {
    isStopping_ = true;
    ask(Request::changedFolders);
    thread_.join();
}

void IndexWorker::ask(Request request) {
    requests_ |= static_cast<unsigned>(request);
    (void)::eventfd_write(wakeUp_.get(), 1);
}

void IndexWorker::run() {
    ensureAlternateStack();
    yieldToEverybody();
    readApplications();
    loadCache();
    while (!isStopping_) {
        const unsigned requests = requests_.exchange(0);
        const auto isAsked = [requests](Request request) {
            return (requests & static_cast<unsigned>(request)) != 0;
        };
        if (isAsked(Request::applications))
            readApplications();
        if (isAsked(Request::changedFolders))
            rereadChanged();
        if (isAsked(Request::mounts))
            lookAtMounts();
        if (isAsked(Request::scan) && !scan_)
            beginScan();
        waitForWork();
        if (scan_ && !isStopping_)
            goOnScanning();
    }
}

void IndexWorker::goOnScanning() {
    if (!scan_->folders.step()) {
        finishScan();
    } else if (!isComplete_ && scan_->builder.size() >= scan_->nextOffer) {
        scan_->nextOffer *= offerGrowth;
        store_ = NameStore(scan_->builder.build());
        applyTitles();
        report();
    }
}

QStringList IndexWorker::roots() const {
    QStringList roots{folders_.home};
    for (const UserFolder& folder : folders_.userFolders)
        roots.append(folder.path);
    roots.append(mounted_.drives);
    // A link that leads elsewhere is read there; what lies in another root is read with that.
    QStringList distinct;
    for (const QString& root : std::as_const(roots)) {
        const QString path = QFileInfo(root).canonicalFilePath();
        const bool isInside = std::ranges::any_of(distinct, [&](const QString& other) {
            return path == other || path.startsWith(other == u"/" ? other : other + u'/');
        });
        if (!path.isEmpty() && (!isInside || mounted_.drives.contains(path)) &&
            !distinct.contains(path) && distinct.size() < qsizetype{NameTable::mostRoots})
            distinct.append(path);
    }
    return distinct;
}

std::unique_ptr<FolderReader> IndexWorker::readerFor(const QStringList& roots) const {
    std::set<std::string> leftOut;
    for (const QStringList& paths : {folders_.leftOut, mounted_.foreign, roots}) {
        for (const QString& path : paths)
            leftOut.insert(encoded(path));
    }
    return std::make_unique<FolderReader>(std::move(leftOut));
}

void IndexWorker::lookAtMounts() {
    if (MountedFolders::read(folders_.mountTable, folders_.driveFolders) != mounted_)
        ask(Request::scan);
}

void IndexWorker::loadCache() {
    mounted_ = MountedFolders::read(folders_.mountTable, folders_.driveFolders);
    const QStringList now = roots();
    reader_ = readerFor(now);
    if (auto table = loadNames(folders_.cacheFile)) {
        QStringList cached;
        for (NameTable::Id root = 0; root < table->rootCount(); ++root)
            cached.append(QFile::decodeName(std::string(table->root(root)).c_str()));
        if (cached == now) {
            store_ = NameStore(*std::move(table));
            watchKnownFolders();
            isComplete_ = true;
        }
    }
    if (!isComplete_)
        beginScan();
    applyTitles();
    report();
    rereadChanged();
}

// From the top downwards, as a scan does; those that changed while nobody watched are read again.
void IndexWorker::watchKnownFolders() {
    const NameTable& table = store_.base();
    const auto look = [&](const std::string& path, std::uint32_t time) {
        watch_.watch(path);
        if (const std::uint32_t now = FolderReader::timeOf(path); now != 0 && now != time)
            changed_.folders.insert(path);
    };
    for (NameTable::Id root = 0; root < table.rootCount(); ++root)
        look(std::string(table.root(root)), table.rootTime(root));
    constexpr int deepest = 12;
    std::array<std::vector<NameTable::Id>, deepest> byDepth;
    for (NameTable::Id id = 0; id < table.size(); ++id) {
        // Those that were not entered have no time, and are not watched either.
        if (!table.isFolder(id) || table.folderTime(id) == 0)
            continue;
        std::size_t depth = 0;
        for (auto above = table.parent(id); above < NameTable::firstRoot && depth < deepest;
             ++depth)
            above = table.parent(above);
        if (depth < deepest)
            byDepth[depth].push_back(id);
    }
    for (const auto& folders : byDepth) {
        for (const NameTable::Id id : folders) {
            if (watch_.isFull() || watch_.wasRefused() || isStopping_)
                return;
            look(store_.path(id), table.folderTime(id));
        }
    }
}

void IndexWorker::beginScan() {
    mounted_ = MountedFolders::read(folders_.mountTable, folders_.driveFolders);
    const QStringList paths = roots();
    reader_ = readerFor(paths);
    scan_ =
        std::make_unique<Scan>(*reader_, [this](const std::string& path) { watch_.watch(path); });
    for (const QString& path : paths) {
        const std::string root = encoded(path);
        scan_->folders.add(root, scan_->builder.addRoot(root));
    }
    changedInScan_ = {};
}

void IndexWorker::finishScan() {
    isCut_ = scan_->builder.isFull();
    NameTable table = scan_->builder.build();
    scan_.reset();
    isComplete_ = true;
    const auto saved = saveNames(table, folders_.cacheFile);
    saveFailure_ = saved ? std::string() : saved.failure().detail.toStdString();
    // The mapped file takes the place of our own memory.
    if (auto mapped = saved ? loadNames(folders_.cacheFile) : std::nullopt)
        table = *std::move(mapped);
    store_ = NameStore(std::move(table));
    applyTitles();
    changed_.add(std::exchange(changedInScan_, {}));
    rereadChanged();
    report();
}

void IndexWorker::rereadChanged() {
    isNoticeSent_ = false;
    if (scan_)
        changedInScan_.add(changed_);
    const IndexWatch::Changes changes = std::exchange(changed_, {});
    // What the first scan has not reached yet would be taken for new.
    if (changes.folders.empty() || !isComplete_)
        return;
    const StoreUpdate update{*reader_, [this](const std::string& path) { watch_.watch(path); },
                             [this](const std::string& path) { watch_.forget(path); },
                             [this] { return isStopping_.load(); }};
    auto changed = update.reread(store_, changes.folders, changes.arrived);
    if (!changed)
        return;
    store_ = *std::move(changed);
    applyTitles();
    report();
    if (store_.recent().size() > mostRecent)
        ask(Request::scan);
}

void IndexWorker::readApplications() {
    applications_ = applicationTitles(folders_.applications);
    applyTitles();
    report();
}

void IndexWorker::applyTitles() {
    std::vector<Title> titles = applications_;
    for (Title& folder : folderTitles(folders_.userFolders, roots()))
        titles.push_back(std::move(folder));
    store_ = store_.withTitles(std::move(titles));
}

void IndexWorker::waitForWork() {
    std::array<pollfd, 3> sources{{{wakeUp_.get(), POLLIN, 0},
                                   {watch_.descriptor(), POLLIN, 0},
                                   // The kernel reports a changed table of mounts as urgent data.
                                   {mounts_.get(), POLLPRI, 0}}};
    const bool isBusy = scan_ != nullptr || requests_ != 0 || isStopping_;
    // Without a descriptor to be woken by, requests are looked for.
    const int whileIdle = wakeUp_ ? -1 : 1000;
    if (::poll(sources.data(), sources.size(), isBusy ? 0 : whileIdle) <= 0)
        return;
    eventfd_t count = 0;
    if (sources[0].revents != 0)
        (void)::eventfd_read(wakeUp_.get(), &count);
    if (sources[1].revents != 0)
        takeChanges();
    if ((sources[2].revents & POLLPRI) != 0)
        sink_.noticed(Noticed::mounts);
}

void IndexWorker::takeChanges() {
    IndexWatch::Changes changes = watch_.take();
    if (changes.wereLost)
        ask(Request::scan);
    changed_.add(std::move(changes));
    if (!changed_.folders.empty() && !std::exchange(isNoticeSent_, true))
        sink_.noticed(Noticed::folders);
}

void IndexWorker::report() {
    sink_.report({store_, scan_ != nullptr || !isComplete_, availability()});
}

platform::Availability IndexWorker::availability() const {
    using State = platform::Availability::State;
    if (watch_.wasRefused())
        return {
            State::limited,
            QStringLiteral("The system watches no more folders for this user, so that new files "
                           "are found only after all folders were read again."),
            QStringLiteral("Raise fs.inotify.max_user_watches and "
                           "fs.inotify.max_user_instances with sysctl, then start again.")};
    if (isCut_)
        return {State::limited,
                QStringLiteral("There are more names than the index holds; the rest is not found."),
                QStringLiteral("Put a file named CACHEDIR.TAG into large folders that need not be "
                               "found.")};
    if (!saveFailure_.empty())
        return {State::limited,
                QStringLiteral("The list of names could not be saved (%1), so that the next start "
                               "reads all folders.")
                    .arg(QString::fromStdString(saveFailure_)),
                QStringLiteral("Make room on the disk, or make the cache folder writable.")};
    return {};
}

} // namespace skipnest::linuxdesktop
