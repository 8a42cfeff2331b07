/* polyarc: the platform services (memory blocks and assertion reports)
 * through which the library reaches its host, and their test hooks. */
#ifndef POLYARC_PLATFORM_H
#define POLYARC_PLATFORM_H

#include "polyarc/records.h"

/* (Re)allocates the block *block to hold count items of size bytes each,
 * keeping the old contents when *block is non-null. With zero_fill 1 the
 * new memory is zeroed. reserved must be 0. On success *block receives the
 * new address and 0 is returned; on failure *block is unchanged and
 * PA_NO_MEMORY is returned. A null block pointer or a zero total size is
 * PA_INVALID. */
POLYARC_EXTERN uint16_t MemAllocBlock(void **block, size_t count, size_t size, int zero_fill,
                                      int reserved);

/* Releases the block *block (a null *block is allowed) and sets *block to
 * null. block must not be null. */
POLYARC_EXTERN void MemFreeMemory(void **block);

/* Reports a failed internal check: source file, line, function name,
 * severity, message, the text of the failed expression and a trailing 0.
 * By default writes one line to standard error; the call returns. */
POLYARC_EXTERN void DebugAssert(const char *file, int line, const char *function, int severity,
                                const char *message, const char *expression, int reserved);

/* ---- Test hooks ------------------------------------------------------- */

/* Makes the n-th call of MemAllocBlock from now fail once (n = 1: the next
 * call); 0 cancels a pending failure. */
POLYARC_EXTERN void MemTestFailNth(unsigned long n);

/* Number of MemAllocBlock calls since the process started. */
POLYARC_EXTERN unsigned long MemTestAllocCalls(void);

/* Number of blocks currently allocated and not yet freed. */
POLYARC_EXTERN unsigned long MemTestLiveBlocks(void);

/* Size in bytes of a block returned by MemAllocBlock (0 for null). */
POLYARC_EXTERN size_t MemTestBlockBytes(const void *block);

/* Receives the reports of DebugAssert instead of standard error. */
typedef void (*DebugAssertHook)(const char *file, int line, const char *function, int severity,
                                const char *message, const char *expression);

/* Installs a report hook (null restores the default) and returns the
 * previous one. */
POLYARC_EXTERN DebugAssertHook DebugAssertSetHook(DebugAssertHook hook);

#endif /* POLYARC_PLATFORM_H */
