// The process-wide comparison tolerance. It is read afresh at every use,
// so a change takes effect with the next comparison.
#include "geom/predicates.h"
#include "polyarc/ge.h"

namespace {

double g_tolerance = 5e-05;

}  // namespace

double polyarc::Tol() { return g_tolerance; }

extern "C" double GeEpsiSetTol(double tol) {
  const double previous = g_tolerance;
  g_tolerance = tol;
  return previous;
}

extern "C" double GeEpsiGetTol(void) { return g_tolerance; }
