#include "row.h"

#include <algorithm>
#include <iterator>

std::string figureName(const std::string& contender, quantity of)
{
    switch (of) {
    case quantity::firstSeconds:
        return contender + ", first call";
    case quantity::instructions:
        return contender + ", instructions";
    case quantity::heap:
        return contender + ", heap";
    case quantity::files:
        return contender + ", files";
    case quantity::seconds:
        break;
    }
    return contender;
}

const std::vector<row>& allRows()
{
    static const std::vector<row> rows = [] {
        std::vector<row> all;
        for (const auto makeRows : {fillRows, effectRows, wireRows, strokeRows, repaintRows, sessionRows,
                                    pictureGrowthRows, crowdGrowthRows}) {
            std::vector<row> some = makeRows();
            std::move(some.begin(), some.end(), std::back_inserter(all));
        }
        return all;
    }();
    return rows;
}

const row* rowNamed(const std::string& name)
{
    const std::vector<row>& rows = allRows();
    const auto found = std::find_if(rows.begin(), rows.end(), [&name](const row& each) { return each.name == name; });
    return found == rows.end() ? nullptr : &*found;
}
