// Runs the registered benchmarks in turns and reports ratios: on a noisy machine only what was
// measured in the same run can be compared.
#pragma once

#include <string>
#include <vector>

namespace lumnis::bench {

// theNames are those of the registered benchmarks, "GROUP/NAME", a group's together. Prints for
// each group a row per name, in the order of theNames: the least time of all rounds, the cost per
// source byte, and the time in relation to the group's first name. Takes the options of Google
// Benchmark; their defaults here are 9 rounds of 0.05 s in random turns. Returns the exit status.
int runWithRatios(const std::vector<std::string>& theNames, int theCount, char** theArguments);

}  // namespace lumnis::bench
