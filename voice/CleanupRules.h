// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace skipnest::voice {

// Whether a model's cleaned text may take the place of a dictated one: not where it is empty,
// longer than twice the message and 40 characters, or holds a number, an e-mail or a web address
// that the message does not have. Both without white space around them.
[[nodiscard]] bool isFaithful(const QString& message, const QString& cleaned);

} // namespace skipnest::voice
