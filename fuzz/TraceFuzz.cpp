// SPDX-License-Identifier: Apache-2.0
#include "cli/TracePlayer.h"
#include "cli/TraceReader.h"
#include "cli/TraceWriter.h"

#include <QBuffer>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace skipnest;
using namespace skipnest::cli::trace;

class IdleAgent final : public TraceAgent {
public:
    platform::Outcome start() override { return platform::Done{}; }
    platform::Outcome changeSettings(const QJsonObject&) override { return platform::Done{}; }
    QJsonObject snapshot() const override { return {}; }
};

// Any event that reads is written so that it reads as the same again.
void checkWrittenEventsReadBack(QByteArray trace) {
    QBuffer input(&trace);
    if (!input.open(QIODevice::ReadOnly))
        std::abort();
    TraceReader reader(input);
    for (auto event = reader.next(); event && *event; event = reader.next()) {
        const QJsonObject written = toJson((*event)->what);
        const auto again = eventFromJson(written);
        if (!again || toJson(again->what) != written)
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QByteArray trace(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    checkWrittenEventsReadBack(trace);

    sim::SimDesktop desk;
    IdleAgent agent;
    TracePlayer player(desk, agent, [](const QByteArray&) {});
    QBuffer input(&trace);
    if (!input.open(QIODevice::ReadOnly))
        std::abort();
    (void)player.play(input);
    return 0;
}
