// The agreement counters of the rival benchmarks.
#include "rival_runs.h"

#include <cmath>
#include <map>
#include <vector>

namespace bench {

void ReportAgreement(benchmark::State &state, const std::string &key, double area, double bound,
                     int status, const AreaOf &rival_area) {
  // Repetitions of a row reuse the rivals' areas instead of running them again.
  static std::map<std::string, std::vector<double>> devs;
  auto it = devs.find(key);
  if (it == devs.end()) {
    std::vector<double> dev;
    for (const char *rival : kRivals) dev.push_back(std::abs(area - rival_area(rival)) / bound);
    it = devs.emplace(key, dev).first;
  }
  state.counters["area"] = area;
  for (size_t i = 0; i < it->second.size(); ++i)
    if (!std::isnan(it->second[i])) state.counters[std::string("dev_") + kRivals[i]] = it->second[i];
  state.counters["status"] = status;
}

}  // namespace bench
