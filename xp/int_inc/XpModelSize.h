// Keeps the content models of one DTD text within bounds.
//
// By the rules of determinism a model such as (a?, b?, c?, ...) of n names needs about n*n/2
// transitions, so a text of a few kilobytes could ask for gigabytes. Real models have at most a
// few thousand.
#pragma once

#include <cstddef>
#include <cstdint>

#include "XpDtdExceptions.h"

namespace lumnis {

class XpModelSize {
  public:
    // Transitions of one model; states that share them count each.
    static constexpr std::size_t theModelLimit = 2'000'000;
    // All models of a text together, in bytes: what the finished ones keep, where states share
    // transitions, and what the one in hand has. It has room for each model within theModelLimit,
    // and for about two million elements of a few names. A safety measure of this parser: there
    // is no such limit in XML.
    static constexpr std::size_t theTextLimit = 96u << 20;
    // Transitions of all models of a text, shared or not: the same for its time.
    static constexpr std::size_t theWorkLimit = 10 * theModelLimit;
    static constexpr std::size_t theNodeSize = 48;  // with one transition inside
    static constexpr std::size_t theTransitionSize = 16;

    class TooLargeException : public XpDtd::GrammarException {
      public:
        CpsString toString() const override;
    };

    // Each throws TooLargeException above a limit.
    void add(std::size_t theTransitions) {
        modelM += theTransitions;
        workM += theTransitions;
        test();
    }
    // Each node must get its first transition at once.
    void addNode() { ++nodesM; }
    // The model is complete and keeps theTransitions in a table: the next one starts at 0.
    void endModel(std::size_t theTransitions) {
        keptM += nodesM * theNodeSize + theTransitions * theTransitionSize;
        modelM = 0;
        nodesM = 0;
    }
    // A number for a list of transitions, from 1; another one for each list of a model.
    std::uint32_t numberList() { return ++listsM; }

  private:
    void test() const {
        if (modelM > theModelLimit || workM > theWorkLimit ||
            keptM + nodesM * theNodeSize + (modelM - nodesM) * theTransitionSize > theTextLimit) {
            throw TooLargeException();
        }
    }

    std::size_t modelM = 0;
    std::size_t nodesM = 0;
    std::size_t keptM = 0;
    std::size_t workM = 0;
    std::uint32_t listsM = 0;
};

}  // namespace lumnis
