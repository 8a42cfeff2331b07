// The assertion report service: one line on standard error by default, or
// the report handed to a hook that a test installs.
#include <cstdio>

#include "polyarc/platform.h"

namespace {

DebugAssertHook g_hook = nullptr;

}  // namespace

extern "C" void DebugAssert(const char *file, int line, const char *function, int severity,
                            const char *message, const char *expression, int /*reserved*/) {
  if (g_hook != nullptr) {
    g_hook(file, line, function, severity, message, expression);
    return;
  }
  std::fprintf(stderr, "polyarc: %s:%d: %s: severity %d: %s (%s)\n", file ? file : "?", line,
               function ? function : "?", severity, message ? message : "",
               expression ? expression : "");
}

extern "C" DebugAssertHook DebugAssertSetHook(DebugAssertHook hook) {
  DebugAssertHook previous = g_hook;
  g_hook = hook;
  return previous;
}
