// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"
#include "voice/JumpTarget.h"
#include "voice/PhraseDecision.h"
#include "voice/TargetScorer.h"

#include <QByteArray>
#include <QJsonObject>

#include <vector>

namespace skipnest::cli {

// {"target": …, "steps": […]}
[[nodiscard]] QJsonObject toJson(const voice::VoiceCommand::Parsed& parsed);
// What is absent is left out.
[[nodiscard]] QJsonObject toJson(const voice::PhraseDecision& decision);
// "app", "file", "folder", "tab" or "window".
[[nodiscard]] QString kindName(voice::JumpTarget::Kind kind);

// [{"title", "subtitle", "kind", "owner", "hot"}], all but title and kind optional.
[[nodiscard]] platform::Result<std::vector<voice::JumpTarget>>
targetsFromJson(const QByteArray& bytes);
// {"lower-cased title": count}
[[nodiscard]] platform::Result<voice::UseCounts> usesFromJson(const QByteArray& bytes);
// [{"heard", "canonical"}], by itself or as "vocabularyAliases" of a configuration.
[[nodiscard]] platform::Result<std::vector<model::VocabAlias>>
aliasesFromJson(const QByteArray& bytes);

} // namespace skipnest::cli
