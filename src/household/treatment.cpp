#include "household/treatment.h"

#include "data/query.h"

namespace tarnwick {
namespace {

constexpr bool causes_are_in_order()
{
    for (size_t i = 0; i < treatments.size(); ++i)
        if (treatments[i].cause != static_cast<Cause>(i))
            return false;
    return treatments.back().cause == Cause::item_move;
}
static_assert(causes_are_in_order());

} // namespace

std::optional<StatusCode> store_status(Connection& connection, Cause cause, Key item, bool to_get)
{
    const Treatment& treatment = treatment_of(cause);
    const StatusCode code = lite_status(connection, item);
    const int stored = code_number(code_of(treatment.stored, code, to_get).value_or(code));
    const bool writes_flag = treatment.item_flag == ItemFlag::given || treatment.item_flag == ItemFlag::cleared;
    const int changed = writes_flag
        ? Query(connection, "UPDATE items_1 SET to_get = ?, status = ? WHERE key_id = ?",
                treatment.item_flag == ItemFlag::given && to_get, stored, item)
              .run()
        : Query(connection, "UPDATE items_1 SET status = ? WHERE key_id = ?", stored, item).run();
    return changed > 0 ? std::optional(code) : std::nullopt;
}

} // namespace tarnwick
