#pragma once

#include <algorithm>
#include <iterator>
#include <vector>

namespace velmora {

/// The process identifiers of the other copies among those that the system lists, in its order.
[[nodiscard]] inline std::vector<int> otherInstances(std::vector<int> const& listed, int own)
{
    std::vector<int> others;
    std::copy_if(listed.begin(), listed.end(), std::back_inserter(others),
        [own](int process) { return process != own; });
    return others;
}

/// The first of them, or none.
[[nodiscard]] inline std::vector<int> firstOf(std::vector<int> instances)
{
    if (instances.size() > 1)
        instances.resize(1);
    return instances;
}

} // namespace velmora
