// SPDX-License-Identifier: Apache-2.0
#include "model/ConfigurationCoding.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// Any bytes are refused with a reason or give a document that survives being written and read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace skipnest::model;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto document = decodeConfiguration(bytes);
    if (!document) {
        if (document.failure().detail.isEmpty())
            std::abort();
        return 0;
    }
    const QByteArray written = encodeConfiguration(*document);
    const auto again = decodeConfiguration(written);
    if (!again || *again != *document || encodeConfiguration(*again) != written)
        std::abort();
    return 0;
}
