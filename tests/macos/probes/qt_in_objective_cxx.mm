// SPDX-License-Identifier: Apache-2.0
// Must fail: 'QString' file not found
#include <QString>
