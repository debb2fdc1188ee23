// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace skipnest::linuxdesktop {

// Tells by its name whether a file is something a person opens: documents, pictures, sound, films,
// text, source, archives, fonts. The machine's table of content types decides; it is asked once for
// each extension. One thread.
class ContentNames {
public:
    enum class Verdict {
        content,
        notContent,
        // No extension: text or a compiled program, which only its permissions tell.
        contentUnlessExecutable,
    };
    ContentNames();

    [[nodiscard]] Verdict verdict(std::string_view name);

private:
    [[nodiscard]] bool isContentExtension(std::string_view extension) const;

    bool knowsTypes_;
    std::unordered_map<std::string, bool> extensions_;
};

} // namespace skipnest::linuxdesktop
