// SPDX-License-Identifier: Apache-2.0
// Our own declarations of what platform/macos uses of libdispatch (10.6).
#pragma once

@protocol OS_dispatch_queue
@end

extern "C" {
typedef void (^dispatch_block_t)(void);
typedef id<OS_dispatch_queue> dispatch_queue_t;
dispatch_queue_t dispatch_get_main_queue(void);
void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);
} // extern "C"
