// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/crash/LinuxCrashCapture.h"

#include "platform/UnavailablePorts.h"
#include "platform/linux/crash/AlternateStack.h"
#include "platform/linux/crash/CrashRecordFile.h"
#include "platform/linux/crash/CrashRecordText.h"
#include "platform/linux/crash/FatalSignals.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <exception>
#include <new>
#include <stdexcept>
#include <string_view>
#include <typeinfo>

#include <cerrno>
#include <cxxabi.h>
#include <poll.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

using namespace std::string_view_literals;
using platform::Failure;

enum class Stage { idle, looking, writing, written };

// How the program ends, as far as is known.
struct Ending {
    std::string_view type;
    std::array<char, CrashRecordText::longestName + 1> name{};
    std::string_view reason;
    CallStack stack;
    // By which it ends if looking at it fails.
    int signal = SIGABRT;
    siginfo_t info{};

    void setName(std::string_view text) {
        const std::size_t length = std::min(text.size(), name.size() - 1);
        *std::copy_n(text.data(), length, name.data()) = '\0';
    }
};

// All that a handler can reach; it outlives everything.
struct Prepared {
    pid_t process = 0;
    CrashRecordFile file;
    CodePlaces places;
    CrashRecordText text;
    FatalSignals signals;
    std::terminate_handler previousTerminate = nullptr;

    std::atomic<pid_t> thread = 0; // that looks at the crash
    std::atomic<Stage> stage = Stage::idle;
    std::atomic<bool> isPassedOn = false; // to the handler that was there before
    Ending ending;
};
constinit Prepared prepared;

bool isOurProcess() {
    return ::getpid() == prepared.process;
}

// True for the first thread that comes; another one waits for the program to end, but not for ever.
bool takesPart() {
    const pid_t self = ::gettid();
    pid_t other = 0;
    if (prepared.thread.compare_exchange_strong(other, self)) {
        prepared.stage = Stage::looking;
        return true;
    }
    constexpr int step = 20; // milliseconds
    constexpr int steps = 150;
    for (int i = 0; other != self && i < steps; ++i)
        (void)::poll(nullptr, 0, step);
    return false;
}

void writeRecord() {
    prepared.stage = Stage::writing;
    const Ending& ending = prepared.ending;
    prepared.places.begin(ending.stack.addresses());
    prepared.file.readMappings(prepared.places);
    prepared.text.write(ending.type, ending.name.data(), ending.reason, prepared.places.places());
    prepared.file.replace(prepared.text.text());
    prepared.stage = Stage::written;
}

void passOn(int number, siginfo_t* info, void* context) {
    if (!prepared.isPassedOn.exchange(true))
        prepared.signals.callPrevious(number, info, context);
}

void onSignal(int number, siginfo_t* info, void* context) {
    const int interrupted = errno;
    if (isOurProcess()) {
        Ending& ending = prepared.ending;
        if (takesPart()) {
            ending.type = "signal"sv;
            ending.setName(FatalSignals::nameOf(number));
            ending.signal = number;
            ending.info = *info;
            ending.stack.walkInterrupted(*info, context);
            writeRecord();
        } else if (prepared.thread == ::gettid() && prepared.stage != Stage::written) {
            // What we were looking at is broken itself.
            if (prepared.stage == Stage::looking)
                writeRecord();
            passOn(ending.signal, &ending.info, context);
            FatalSignals::endHere(ending.signal, &ending.info);
        }
    }
    passOn(number, info, context);
    errno = interrupted;
    FatalSignals::endBy(number, info);
}

// Its kind by the standard's classes. An exception's own text may hold a path or a name.
std::string_view kindOfException() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return "uncaught std::bad_alloc"sv;
    } catch (const std::logic_error&) {
        return "uncaught std::logic_error"sv;
    } catch (const std::runtime_error&) {
        return "uncaught std::runtime_error"sv;
    } catch (const std::exception&) {
        return "uncaught std::exception"sv;
    } catch (...) {
        return "uncaught exception"sv;
    }
}

void setTypeName(const std::type_info& type) {
    prepared.ending.setName(type.name());
    int status = 0;
    // Allocates, but this is no signal handler. Without memory the name stays as it is, except for
    // the one that is thrown then.
    char* name = abi::__cxa_demangle(type.name(), nullptr, nullptr, &status);
    if (name)
        prepared.ending.setName(name);
    else if (type == typeid(std::bad_alloc))
        prepared.ending.setName("std::bad_alloc"sv);
    std::free(name); // NOLINT(cppcoreguidelines-no-malloc): the library made it so
}

[[noreturn]] void onTerminate() {
    if (isOurProcess() && takesPart()) {
        Ending& ending = prepared.ending;
        ending.type = "exception"sv;
        ending.setName("std::terminate"sv);
        ending.reason = "terminated without an exception"sv;
        ending.info.si_signo = SIGABRT;
        ending.info.si_code = SI_TKILL;
        ending.info.si_pid = ::getpid();
        ending.info.si_uid = ::getuid();
        // Thrown and caught nowhere, an exception leaves the stack as it was.
        ending.stack.walkFrom(__builtin_return_address(0));
        if (const std::type_info* type = abi::__cxa_current_exception_type()) {
            setTypeName(*type);
            ending.reason = kindOfException();
        }
        writeRecord();
    }
    if (prepared.previousTerminate)
        prepared.previousTerminate();
    std::abort();
}

class LinuxCrashCapture final : public platform::CrashCapture {
public:
    [[nodiscard]] platform::Availability availability() const override { return {}; }
    platform::Outcome install(const QString& recordFile) override;
};

platform::Outcome LinuxCrashCapture::install(const QString& recordFile) {
    if (prepared.process != 0)
        return Failure{Failure::Kind::refused, QStringLiteral("crashes are captured already")};
    if (auto opened = prepared.file.prepare(recordFile); !opened)
        return opened;
    CallStack::prepare();
    ensureAlternateStack();
    prepared.process = ::getpid();
    prepared.previousTerminate = std::set_terminate(onTerminate);
    prepared.signals.catchAll(onSignal);
    return platform::Done{};
}

} // namespace

std::unique_ptr<platform::CrashCapture> makeCrashCapture() {
#ifdef SKIPNEST_SANITIZED
    return std::make_unique<platform::UnavailableCrashCapture>(platform::Availability{
        platform::Availability::State::unavailable,
        QStringLiteral("A sanitizer watches this build and reports crashes itself."),
        QStringLiteral("Use a build without sanitizers.")});
#else
    return std::make_unique<LinuxCrashCapture>();
#endif
}

} // namespace skipnest::linuxdesktop
