#include "CliSuggestion.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "CpsAscii.h"

namespace lumnis {

namespace {

// Nobody mistypes more than this, and the distance costs the product of the lengths.
constexpr std::size_t theLongestName = 64;

}  // namespace

std::size_t editDistance(std::string_view theLeft, std::string_view theRight) {
    const std::size_t width = theRight.size() + 1;
    std::vector<std::size_t> beforeLast(width);
    std::vector<std::size_t> last(width);
    std::vector<std::size_t> row(width);
    std::iota(last.begin(), last.end(), std::size_t{0});
    for (std::size_t i = 1; i <= theLeft.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j < width; ++j) {
            const char left = asciiLower(theLeft[i - 1]);
            const char right = asciiLower(theRight[j - 1]);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (left != right)});
            if (i > 1 && j > 1 && left == asciiLower(theRight[j - 2]) &&
                asciiLower(theLeft[i - 2]) == right) {
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
        }
        std::swap(beforeLast, last);
        std::swap(last, row);
    }
    return last[width - 1];
}

std::string_view nearestName(std::string_view theName,
                             const std::vector<std::string_view>& theKnown) {
    std::string_view nearest;
    if (theName.empty() || theName.size() > theLongestName) {
        return nearest;
    }
    // The two marks of an option are not what anybody mistypes.
    const std::size_t marks = theName.starts_with("--") ? 2 : 0;
    std::size_t best = std::max<std::size_t>(1, (theName.size() - marks) / 3) + 1;
    for (const std::string_view known : theKnown) {
        const std::size_t distance = editDistance(theName, known);
        if (distance < best) {
            best = distance;
            nearest = known;
        }
    }
    return nearest;
}

std::string suggestion(std::string_view theName, const std::vector<std::string_view>& theKnown) {
    const std::string_view nearest = nearestName(theName, theKnown);
    return nearest.empty() ? std::string() : "\nDid you mean \"" + std::string(nearest) + "\"?";
}

}  // namespace lumnis
