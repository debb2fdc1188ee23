// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/SystemError.h"

#include <cerrno>
#include <cstring>

namespace skipnest::linuxdesktop {
namespace {

platform::Failure::Kind kindOf(int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return platform::Failure::Kind::notFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case ELOOP:
        return platform::Failure::Kind::refused;
    default:
        return platform::Failure::Kind::system;
    }
}

} // namespace

platform::Failure systemFailure(int error, const QString& doing, const QString& subject) {
    const char* words = ::strerrordesc_np(error);
    return {kindOf(error), QStringLiteral("%1 %2: %3")
                               .arg(doing, subject,
                                    words != nullptr ? QString::fromLatin1(words)
                                                     : QStringLiteral("error %1").arg(error))};
}

} // namespace skipnest::linuxdesktop
