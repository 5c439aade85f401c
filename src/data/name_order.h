#pragma once

#include "data/collation.h"

#include <algorithm>
#include <vector>

namespace tarnwick {

/// Records with a `NameKey` called `name`, in name order; equals stay as they stand. Sorted here, where a name is
/// looked at once: the order of a query would compare texts over and over.
template <typename Named> std::vector<const Named*> in_order_of_names(const std::vector<Named>& records)
{
    std::vector<const Named*> order;
    order.reserve(records.size());
    for (const Named& record : records)
        order.push_back(&record);
    std::stable_sort(order.begin(), order.end(), [](const Named* a, const Named* b) { return a->name < b->name; });
    return order;
}

} // namespace tarnwick
