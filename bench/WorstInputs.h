// Inputs of a given size for each entrance of the system: ordinary ones, and those that load one
// construct with all that the size allows. Decks and scripts have a source file each, WorstDecks.cc
// and WorstScripts.cc.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace lumnis::bench {

struct WorstInput {
    std::string name;
    std::string text;
};

std::vector<WorstInput> ordinaryDecks(std::size_t theSize);
std::vector<WorstInput> ordinaryScripts(std::size_t theSize);
std::vector<WorstInput> ordinaryDtds(std::size_t theSize);
std::vector<WorstInput> ordinaryFiles(std::size_t theSize);  // compiled decks and scripts
std::vector<WorstInput> ordinarySettings(std::size_t theSize);
std::vector<WorstInput> ordinaryTexts(std::size_t theSize);  // in any charset

std::vector<WorstInput> worstDecks(std::size_t theSize);
std::vector<WorstInput> worstScripts(std::size_t theSize);
std::vector<WorstInput> worstDtds(std::size_t theSize);
std::vector<WorstInput> worstFiles(std::size_t theSize);
std::vector<WorstInput> worstSettings(std::size_t theSize);
std::vector<WorstInput> worstTexts(std::size_t theSize);

}  // namespace lumnis::bench
