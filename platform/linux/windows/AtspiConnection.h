// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QString>

#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

namespace skipnest::linuxdesktop {

// The numbers of AT-SPI that are used here; the protocol fixes them.
enum class AtspiRole : std::uint32_t {
    checkMenuItem = 8,
    filler = 20,
    frame = 23,
    layeredPane = 30,
    menu = 33,
    menuBar = 34,
    menuItem = 35,
    panel = 39,
    popupMenu = 41,
    radioMenuItem = 45,
    rootPane = 46,
    separator = 50,
};

// Something that a program shows, with what it says of itself.
struct AtspiNode {
    QString service; // the program's name on the bus
    QString path;
    QString name;
    AtspiRole role{}; // may be a number without a name above
    bool isActive = false;
    bool isChecked = false;
};

// Questions to other programs by AT-SPI, over the bus that at-spi2-core runs beside the session's.
// Each waits for an answer, so none is for the main thread; any number of other threads may ask.
// A program that does not answer within a fraction of a second counts as one that never will.
class AtspiConnection {
public:
    // Whether programs are told to be accessible. Asked of the session bus; nothing is started for
    // the sake of the question. May wait for a quarter of a second.
    enum class Service { absent, forSomeToolkits, running };
    [[nodiscard]] static Service service();

    AtspiConnection() = default;
    ~AtspiConnection();
    AtspiConnection(const AtspiConnection&) = delete;
    AtspiConnection& operator=(const AtspiConnection&) = delete;

    // The program of this process. Nothing where it is not accessible.
    [[nodiscard]] std::optional<AtspiNode> program(std::int64_t processId);
    // The first hundred children. Nothing where the program does not answer.
    [[nodiscard]] std::optional<std::vector<AtspiNode>> children(const AtspiNode& node);
    // Does what a click on the node does, if it still is what it was.
    bool press(const AtspiNode& node);

private:
    [[nodiscard]] std::optional<QDBusConnection> bus();

    std::mutex connecting_;
};

} // namespace skipnest::linuxdesktop
