// SPDX-License-Identifier: Apache-2.0
// Crashes as it is told: crash_victim RECORD WAY. Before, it prints where in its own file the
// function is that crashes.
#include "platform/QtExecutor.h"
#include "platform/QtScheduler.h"
#include "platform/linux/ApplicationLauncher.h"
#include "platform/linux/crash/AlternateStack.h"
#include "platform/linux/crash/LinuxCrashCapture.h"
#include "platform/linux/shell/DetachedProcesses.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>

#include <csignal>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace skipnest;

volatile int zero = 0;
int* volatile nothing = nullptr;
void* volatile taken = nullptr;
void (*volatile nowhere)() = nullptr;
// A call that is not the last thing its function does keeps that function on the stack.
volatile int afterwards = 0;

struct OwnFault {
    std::string text;
};

[[gnu::noinline]] void writeNull() {
    *nothing = 1;
}

[[gnu::noinline]] void callNull() {
    nowhere();
    afterwards = 1;
}

[[gnu::noinline]] void abortNow() {
    std::abort();
}

[[gnu::noinline]] void divide() {
    afterwards = 1000 / zero;
}

[[gnu::noinline]] void illegal() {
    __builtin_trap();
}

[[gnu::noinline]] void sendTrap() {
    (void)std::raise(SIGTRAP);
    afterwards = 1;
}

[[gnu::noinline]] void overflow() {
    volatile char filled[512] =
        {}; // NOLINT(modernize-avoid-c-arrays): std::array is never volatile
    filled[0] = static_cast<char>(zero);
    if (zero == 0)
        overflow();
    afterwards = static_cast<unsigned char>(filled[0]);
}

[[gnu::noinline]] void readPastEnd() {
    const int file = ::open("/proc/self/exe", O_RDONLY);
    constexpr off_t far = 1L << 32;
    const void* page = ::mmap(nullptr, 4096, PROT_READ, MAP_PRIVATE, file, far);
    afterwards = *static_cast<const volatile unsigned char*>(page);
}

[[gnu::noinline]] void destroyStack() {
#if defined(__x86_64__)
    asm volatile("movq $64, %rsp\n\tmovq $64, %rbp\n\tud2");
#elif defined(__aarch64__)
    asm volatile("mov x9, #64\n\tmov sp, x9\n\tmov x29, x9\n\tudf #0");
#endif
}

[[gnu::noinline]] void throwStandard() {
    throw std::out_of_range("/home/somebody/letter.txt");
}

[[gnu::noinline]] void throwOwn() {
    throw OwnFault{"somebody"};
}

[[gnu::noinline]] void exhaustMemory() {
    constexpr rlim_t room = 1 << 20;
    const rlimit limit{room, room};
    (void)::setrlimit(RLIMIT_AS, &limit);
    for (std::size_t size = 1 << 16; size >= 16; size /= 2) {
        do {
            taken = std::malloc(size);
        } while (taken);
    }
    nothing = new int;
}

[[gnu::noinline]] void terminate() {
    std::terminate();
}

[[gnu::noinline]] void withoutDescriptors() {
    while (::open("/dev/null", O_RDONLY) >= 0) {
    }
    *nothing = 1;
}

[[gnu::noinline]] void crashInTwoThreads() {
    std::thread other(writeNull);
    writeNull();
    other.join();
}

// Ends well itself.
void crashInFork() {
    if (::fork() == 0)
        writeNull();
    int status = 0;
    ::wait(&status);
    std::exit(WIFSIGNALED(status) && WTERMSIG(status) == SIGSEGV ? EXIT_SUCCESS : EXIT_FAILURE);
}

using Site = void (*)();
struct Way {
    std::string_view name;
    Site site;
};
constexpr std::array ways{
    Way{"writeNull", writeNull},
    Way{"callNull", callNull},
    Way{"abort", abortNow},
    Way{"divide", divide},
    Way{"illegal", illegal},
    Way{"trap", sendTrap},
    Way{"overflow", overflow},
    Way{"bus", readPastEnd},
    Way{"destroyStack", destroyStack},
    Way{"throwStandard", throwStandard},
    Way{"throwOwn", throwOwn},
    Way{"exhaustMemory", exhaustMemory},
    Way{"terminate", terminate},
    Way{"withoutDescriptors", withoutDescriptors},
    Way{"twoThreads", crashInTwoThreads},
    Way{"fork", crashInFork},
};

void say(std::string_view text) {
    (void)!::write(STDOUT_FILENO, text.data(), text.size());
}

void beHandledBefore() {
    struct sigaction action = {};
    action.sa_flags = SA_SIGINFO;
    action.sa_sigaction = [](int, siginfo_t*, void*) { say("previous handler\n"); };
    (void)::sigaction(SIGSEGV, &action, nullptr);
    (void)::signal(SIGABRT, [](int) { say("previous handler\n"); });
    std::set_terminate([] {
        say("previous terminate\n");
        std::abort();
    });
}

// The program in the arguments and the desktop entry write their own state into files.
int launch(const QString& entry, const QString& script) {
    platform::QtScheduler scheduler;
    platform::QtExecutor executor(scheduler, linuxdesktop::ensureAlternateStack);
    linuxdesktop::ApplicationLauncher launcher(executor);
    bool isLaunched = linuxdesktop::DetachedProcesses()
                          .launch(QStringLiteral("sh"), {QStringLiteral("-c"), script})
                          .ok();
    launcher.launch({.entryPath = entry, .files = {}, .startupId = {}}, [&](const auto& launched) {
        isLaunched = isLaunched && launched.ok();
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
    return isLaunched ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const rlimit noDump{0, 0};
    (void)::setrlimit(RLIMIT_CORE, &noDump);
    if (arguments.contains(QStringLiteral("handled-before")))
        beHandledBefore();
    const auto capture = linuxdesktop::makeCrashCapture();
    if (!capture->install(arguments.at(1)))
        return EXIT_FAILURE;
    if (arguments.at(2) == u"launch")
        return launch(arguments.at(3), arguments.at(4));

    const std::string name = arguments.at(2).toStdString();
    const auto* const way = std::ranges::find(ways, name, &Way::name);
    if (way == ways.end())
        return EXIT_FAILURE;
    Dl_info file = {};
    (void)::dladdr(reinterpret_cast<void*>(way->site), &file);
    std::printf("%zx\n", reinterpret_cast<std::uintptr_t>(way->site) -
                             reinterpret_cast<std::uintptr_t>(file.dli_fbase));
    std::fflush(stdout);
    if (!arguments.contains(QStringLiteral("worker"))) {
        way->site();
        return EXIT_SUCCESS;
    }
    platform::QtScheduler scheduler;
    platform::QtExecutor executor(scheduler, linuxdesktop::ensureAlternateStack);
    executor.background([way] { way->site(); }, [] {});
    return QCoreApplication::exec();
}
