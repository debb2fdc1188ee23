// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/LinuxInstanceLock.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <csignal>
#include <functional>
#include <new>
#include <vector>

#include <fcntl.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

using namespace std::chrono_literals;
using platform::Failure;
using platform::ProcessIdentifier;
using platform::Termination;

// A process of our own program that runs `body`, says so by one byte, and lives until killed or
// until its `body` ends it.
class Child {
public:
    explicit Child(const std::function<bool()>& body) {
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe(ends.data()), 0);
        pid_ = ::fork();
        if (pid_ == 0) {
            const char answer = body() ? 'y' : 'n';
            (void)!::write(ends[1], &answer, 1);
            for (;;)
                ::pause();
        }
        ::close(ends[1]);
        char answer = '?';
        (void)!::read(ends[0], &answer, 1);
        ::close(ends[0]);
        succeeded_ = answer == 'y';
    }
    ~Child() {
        if (pid_ > 0) {
            ::kill(pid_, SIGKILL);
            (void)endedBy();
        }
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    [[nodiscard]] bool succeeded() const { return succeeded_; }
    [[nodiscard]] ProcessIdentifier pid() const { return {pid_}; }
    void kill() const { ::kill(pid_, SIGKILL); }
    // Waits for its end: the signal that ended it, 0 for an exit.
    int endedBy() {
        int status = 0;
        ::waitpid(std::exchange(pid_, -1), &status, 0);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

private:
    pid_t pid_ = -1;
    bool succeeded_ = false;
};

// A process of another program, once it is one: its end of the pipe closes with exec.
pid_t startSleep() {
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::execlp("sleep", "sleep", "60", nullptr);
        ::_exit(127);
    }
    ::close(ends[1]);
    char nothing = 0;
    EXPECT_EQ(::read(ends[0], &nothing, 1), 0);
    ::close(ends[0]);
    return pid;
}

class LinuxInstanceLockTest : public testing::Test {
protected:
    QString folder() const { return folder_.filePath(QStringLiteral("run/Skipnest")); }
    QString lockFile() const { return folder() + QStringLiteral("/agent.lock"); }

    // An agent in a process of its own.
    std::function<bool()> agent() {
        return [this] {
            static platform::InstanceToken held;
            auto token = lock_.acquire();
            if (!token)
                return false;
            held = std::move(token).value();
            return true;
        };
    }
    void overwriteRecord(const QByteArray& text) const {
        QFile file(lockFile());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.resize(0));
        ASSERT_EQ(file.write(text), text.size());
    }

    QTemporaryDir folder_;
    LinuxInstanceLock lock_{folder(), 50ms};
};

TEST_F(LinuxInstanceLockTest, oneOfTwoIsTheAgentAndItsEndHoweverItComesMakesRoom) {
    Child first(agent());
    ASSERT_TRUE(first.succeeded());
    EXPECT_EQ(lock_.holder(), first.pid());
    {
        Child second(agent());
        EXPECT_FALSE(second.succeeded());
    }
    EXPECT_EQ(lock_.acquire().failure().kind, Failure::Kind::refused);
    EXPECT_EQ(lock_.holder(), first.pid()) << "asking and trying changed who it is";

    first.kill();
    ASSERT_EQ(first.endedBy(), SIGKILL);
    EXPECT_EQ(lock_.holder(), std::nullopt) << "the pid left in the file counts for nothing";
    const auto own = lock_.acquire();
    ASSERT_TRUE(own);
    EXPECT_EQ(lock_.holder(), ProcessIdentifier{::getpid()});
    EXPECT_EQ(lock_.endHolder(Termination::polite).failure().kind, Failure::Kind::refused);
}

TEST_F(LinuxInstanceLockTest, theHolderIsEndedAsAsked) {
    EXPECT_EQ(lock_.endHolder(Termination::polite).failure().kind, Failure::Kind::notFound);
    for (const auto& [termination, signal] :
         {std::pair(Termination::polite, SIGTERM), std::pair(Termination::forced, SIGKILL)}) {
        Child child(agent());
        ASSERT_TRUE(child.succeeded());
        EXPECT_TRUE(lock_.endHolder(termination));
        EXPECT_EQ(child.endedBy(), signal);
    }
}

TEST_F(LinuxInstanceLockTest, aPidThatNowMeansAnotherProcessIsLeftAlone) {
    const Child holder(agent());
    ASSERT_TRUE(holder.succeeded());
    const Child sameProgram([] { return true; });
    const pid_t otherProgram = startSleep();
    const QByteArray startTime = [this] {
        QFile file(lockFile());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().trimmed().split(' ').last();
    }();
    const QByteArrayList records{
        QByteArray::number(qint64{otherProgram}) + ' ' + startTime,
        QByteArray::number(sameProgram.pid().value) + " 1",
        QByteArray::number(holder.pid().value),
        QByteArray::number(holder.pid().value) + " 0",
        "-1 1",
        "0 0",
        "1 0",
        "",
        "not a number",
    };
    for (const QByteArray& record : records) {
        overwriteRecord(record);
        EXPECT_EQ(lock_.holder(), std::nullopt) << record.toStdString();
        EXPECT_FALSE(lock_.endHolder(Termination::forced)) << record.toStdString();
    }
    EXPECT_EQ(::waitpid(otherProgram, nullptr, WNOHANG), 0) << "it was ended";
    ::kill(otherProgram, SIGKILL);
    ::waitpid(otherProgram, nullptr, 0);
}

TEST_F(LinuxInstanceLockTest, aStartWaitsForTheOneBeforeAndNoLongerThanItsLimit) {
    auto first = lock_.enterStart();
    ASSERT_TRUE(first);
    EXPECT_EQ(lock_.enterStart().failure().kind, Failure::Kind::timedOut);
    std::move(first).value().reset();
    EXPECT_TRUE(lock_.enterStart());
}

TEST_F(LinuxInstanceLockTest, aFolderThatCannotBeMadeIsAFailureNotAWait) {
    LinuxInstanceLock nowhere(QStringLiteral("/proc/self/none/Skipnest"));
    EXPECT_FALSE(nowhere.enterStart());
    EXPECT_FALSE(nowhere.acquire());
    EXPECT_EQ(nowhere.holder(), std::nullopt);
}

struct Tally {
    std::atomic<int> inside{0};
    std::atomic<int> most{0};
    std::atomic<int> turns{0};
};

TEST_F(LinuxInstanceLockTest, ofTwentyStartsAtOnceOneIsInsideAtATime) {
    constexpr int processes = 20;
    constexpr int rounds = 3;
    void* shared =
        ::mmap(nullptr, sizeof(Tally), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(shared, MAP_FAILED);
    auto* tally = new (shared) Tally;
    std::vector<pid_t> children;
    for (int i = 0; i < processes; ++i) {
        const pid_t child = ::fork();
        if (child == 0) {
            LinuxInstanceLock lock(folder());
            for (int round = 0; round < rounds; ++round) {
                const auto start = lock.enterStart();
                const auto token = lock.acquire();
                if (!start || !token)
                    continue;
                const int inside = ++tally->inside;
                for (int most = tally->most; most < inside;)
                    tally->most.compare_exchange_weak(most, inside);
                for (int yields = 0; yields < 100; ++yields)
                    ::sched_yield();
                if (lock.holder() == ProcessIdentifier{::getpid()})
                    ++tally->turns;
                --tally->inside;
            }
            ::_exit(0);
        }
        children.push_back(child);
    }
    for (const pid_t child : children)
        ::waitpid(child, nullptr, 0);
    EXPECT_EQ(tally->most, 1);
    EXPECT_EQ(tally->turns, processes * rounds);
    ::munmap(shared, sizeof(Tally));
}

} // namespace
} // namespace skipnest::linuxdesktop
