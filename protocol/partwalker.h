#pragma once

#include <algorithm>
#include <string_view>
#include <utility>

/// Walks once over the parts of a message, which are what lies between two blanks; empty parts count. The text belongs
/// to the caller and outlives the walker and the parts.
class partwalker {
public:
    explicit partwalker(std::string_view text)
        : rest(text)
    {
    }

    /// How many parts are still to take.
    int left() const { return ended ? 0 : static_cast<int>(std::count(rest.begin(), rest.end(), ' ')) + 1; }
    bool atEnd() const { return ended; }

    /// The next part; an empty one behind the end.
    std::string_view take()
    {
        const std::size_t blank = rest.find(' ');
        const std::string_view part = rest.substr(0, blank);
        ended = blank == std::string_view::npos;
        rest.remove_prefix(ended ? rest.size() : blank + 1);
        return part;
    }

    /// All parts that are still to take, with their blanks.
    std::string_view takeRest()
    {
        ended = true;
        return std::exchange(rest, {});
    }

private:
    std::string_view rest;
    bool ended = false; ///< an empty rest may still be a part
};
