// Keeps the content models of one DTD text within bounds.
//
// By the rules of determinism a model such as (a?, b?, c?, ...) of n names needs about n*n/2
// transitions, so a text of a few kilobytes could ask for gigabytes. Real models have at most a
// few thousand.
#pragma once

#include <cstddef>

#include "XpDtdExceptions.h"

namespace lumnis {

class XpModelSize {
  public:
    // Transitions of one model, and of all models of a text together.
    static constexpr std::size_t theModelLimit = 2'000'000;
    static constexpr std::size_t theTextLimit = 4 * theModelLimit;
    // Transitions looked at while the models of a text are joined.
    static constexpr std::size_t theWorkLimit = 16 * theModelLimit;

    class TooLargeException : public XpDtd::GrammarException {
      public:
        CpsString toString() const override;
    };

    // Each throws TooLargeException above a limit.
    void add(std::size_t theTransitions) {
        modelM += theTransitions;
        textM += theTransitions;
        test(modelM <= theModelLimit && textM <= theTextLimit);
    }
    void work(std::size_t theSteps) {
        workM += theSteps;
        test(workM <= theWorkLimit);
    }
    // The model is complete: the next one starts at 0.
    void endModel() { modelM = 0; }

  private:
    static void test(bool isWithin) {
        if (!isWithin) {
            throw TooLargeException();
        }
    }

    std::size_t modelM = 0;
    std::size_t textM = 0;
    std::size_t workM = 0;
};

}  // namespace lumnis
