// SPDX-License-Identifier: Apache-2.0
#include "voice/VoiceUsage.h"

#include "model/FreePath.h"

#include <QDateTime>

#include <cstdint>
#include <mutex>
#include <utility>

namespace skipnest::voice {
namespace {

using namespace std::chrono_literals;
using platform::FileKind;
using platform::Outcome;
using platform::Result;

constexpr platform::Duration savingDelay = 2s;

} // namespace

// Written from two threads, never at once, and never an older content over a newer one.
class VoiceUsage::File {
public:
    File(platform::Files& files, const platform::AppInfo& app)
        : files_(files), folder_(app.supportFolder),
          path_(folder_ + QStringLiteral("/voice.json")) {}

    // Before all else, on the main thread.
    [[nodiscard]] Result<QByteArray> read() const {
        if (files_.kind(path_) == FileKind::none)
            return QByteArrayLiteral("{}");
        return files_.read(path_, largestFile);
    }
    void keepBesideFirst() { isWrong_ = true; }

    [[nodiscard]] std::uint64_t nextEdition() { return ++editions_; } // on the main thread
    Outcome write(std::uint64_t edition, const QByteArray& bytes, const QDateTime& local) {
        const std::scoped_lock lock(writing_);
        if (edition <= written_)
            return platform::Done{};
        if (const Outcome made = files_.createFolder(folder_); !made)
            return made;
        if (isWrong_ && files_.kind(path_) != FileKind::none) {
            const QString kept =
                model::freePathBeside(files_, path_, QStringLiteral("corrupt"), local);
            if (const Outcome moved = files_.rename(path_, kept); !moved)
                return moved;
        }
        isWrong_ = false;
        const Outcome done = platform::writeDurably(files_, path_, bytes);
        if (done)
            written_ = edition;
        return done;
    }

private:
    platform::Files& files_;
    const QString folder_;
    const QString path_;
    std::uint64_t editions_ = 0;

    std::mutex writing_; // guards all below
    std::uint64_t written_ = 0;
    bool isWrong_ = false;
};

VoiceUsage::VoiceUsage(platform::Files& files, platform::Scheduler& scheduler,
                       platform::Executor& executor, const platform::WallClock& clock,
                       platform::Diagnostics& diagnostics, const platform::AppInfo& app)
    : scheduler_(scheduler), executor_(executor), clock_(clock), diagnostics_(diagnostics),
      file_(std::make_shared<File>(files, app)) {
    load();
}

VoiceUsage::~VoiceUsage() {
    flush();
}

void VoiceUsage::load() {
    const Result<QByteArray> bytes = file_->read();
    Result<UseHistory::Decoded> decoded = bytes ? UseHistory::decoded(*bytes) : bytes.failure();
    if (!decoded) {
        file_->keepBesideFirst();
        diagnostics_.log(QStringLiteral("voice: use counts not read: ") + decoded.failure().detail);
        return;
    }
    if (decoded->leftOut > 0) {
        file_->keepBesideFirst();
        diagnostics_.log(
            QStringLiteral("voice: %1 use counts left out, not readable").arg(decoded->leftOut));
    }
    history_ = std::move(decoded).value().history;
    counts_ = history_.counts();
}

void VoiceUsage::record(const QString& title) {
    history_.record(title);
    counts_ = history_.counts();
    unsaved_ = file_->nextEdition();
    save_ = scheduler_.after(savingDelay, "voice use counts", [this] { write(); });
}

void VoiceUsage::write() {
    const auto outcome = std::make_shared<Outcome>(platform::Done{});
    executor_.serial([file = file_, outcome, edition = unsaved_, bytes = history_.encoded(),
                      local = clock_.nowLocal()] { *outcome = file->write(edition, bytes, local); },
                     [this, alive = std::weak_ptr(alive_), outcome, edition = unsaved_] {
                         if (!alive.expired())
                             report(edition, *outcome);
                     });
}

void VoiceUsage::flush() {
    save_.reset();
    // Also what an executor still holds and may not run any more.
    if (unsaved_ != 0)
        report(unsaved_, file_->write(unsaved_, history_.encoded(), clock_.nowLocal()));
}

void VoiceUsage::report(std::uint64_t edition, const Outcome& written) {
    if (!written) // made up for by the next one
        diagnostics_.log(QStringLiteral("voice: use counts not saved: ") +
                         written.failure().detail);
    else if (unsaved_ == edition)
        unsaved_ = 0;
}

} // namespace skipnest::voice
