// SPDX-License-Identifier: Apache-2.0
#include "main/Entry.h"

int main(int argc, char** argv) {
    return skipnest::runFront(argc, argv);
}
