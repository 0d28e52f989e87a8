#pragma once

#include <functional>
#include <string>
#include <vector>

/// One way to do a piece of work, of which several are measured side by side.
struct contender {
    std::string name;
    std::function<void()> work;
    std::function<void()> prepare = {}; ///< before each sample, not measured
    int calls = 1; ///< of work, that make up one timed sample
    bool slow = false; ///< sampled once a round, the others several times
    double amount = 0; ///< how much work it is, in the unit of a row that grows
};

enum class quantity : char {
    seconds, ///< of the thread's processor time, for one call
    // The others are taken in processes of their own.
    firstSeconds, ///< the same for the first call in a process
    instructions, ///< as callgrind counts them
    heap, ///< the most bytes that were allocated on top of what was allocated before
    files, ///< that were opened, other than the settings
};

/// A figure, or the ratio of two, that is to keep to a bound.
struct claim {
    enum class side : char { atMost, atLeast };

    std::string work; ///< the row of the table
    quantity of;
    std::string figure;
    std::string reference; ///< what the figure is divided by; empty for a figure that stands alone
    side direction;
    double bound;
    bool stretch = false; ///< to be wished for
};

/// One row of the benchmark: contenders that do the same, in one run, and what is claimed of them.
struct row {
    std::string name;
    /// Makes the contenders with what they work on; called when the row's turn comes.
    std::function<std::vector<contender>()> make;
    std::vector<claim> claims;
    int rounds = 9; ///< 0 for work that is not timed again and again
    /// The contenders differ in the amount of their work, counted in this unit. From one to the next, the time for a
    /// unit should not grow by more than the factor.
    std::string growsBy = {};
    double mostGrowth = 1.5;
    double mostFirstGrowth = 1.5; ///< the same for the first step
    /// No contender takes a window away for longer than this, in seconds; 0 when that is not looked at.
    double longestStep = 0;
};

/// The name under which a figure is reported.
std::string figureName(const std::string& contender, quantity of);

/// All rows, in the order of the table.
const std::vector<row>& allRows();
/// Null when there is none of the name.
const row* rowNamed(const std::string& name);

std::vector<row> fillRows();
std::vector<row> effectRows();
std::vector<row> wireRows();
std::vector<row> strokeRows();
std::vector<row> repaintRows();
std::vector<row> sessionRows();
std::vector<row> pictureGrowthRows();
std::vector<row> crowdGrowthRows();
